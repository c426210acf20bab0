// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Which of the keys that lock are locked. User interface thread only.

#pragma once

#include <optional>

namespace quorbit {

struct LockKeys {
    bool caps = false;
    bool num = false;
    bool scroll = false;
};

// Nothing where the display does not tell, as on Wayland.
[[nodiscard]] std::optional<LockKeys> ReadLockKeys();

}  // namespace quorbit
