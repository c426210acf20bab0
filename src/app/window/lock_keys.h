// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Reads the state of the lock keys. User interface thread only.

#pragma once

#include <optional>

namespace quorbit {

struct LockKeys {
    bool caps = false;
    bool num = false;
    bool scroll = false;
};

// Returns nothing if the display does not report the state, as on Wayland.
[[nodiscard]] std::optional<LockKeys> ReadLockKeys();

}  // namespace quorbit
