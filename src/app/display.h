// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Whether this process can show a window.

#pragma once

#include <functional>
#include <string>

namespace quorbit {

// environment gives the value of a variable, empty if it is not set. Looks only at what is set; a
// display that is named may still refuse.
[[nodiscard]] bool HasDisplay(const std::function<std::string(const char*)>& environment);
// By the environment of this process.
[[nodiscard]] bool HasDisplay();

}  // namespace quorbit
