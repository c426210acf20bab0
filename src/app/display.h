// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Detects whether the process can show a window. Any thread.

#pragma once

#include <functional>
#include <string>

namespace quorbit {

// environment returns the value of a variable, or an empty string if it is not set. Checks only the
// variables and connects to nothing: a display that is named may still be unreachable.
[[nodiscard]] bool HasDisplay(const std::function<std::string(const char*)>& environment);
// Uses the environment of this process.
[[nodiscard]] bool HasDisplay();

}  // namespace quorbit
