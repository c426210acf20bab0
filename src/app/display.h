// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Detects whether the process can show a window. Any thread.

#pragma once

#include <functional>
#include <string>

namespace quorbit {

enum class DisplayKind {
    None,       // no display is named
    Invisible,  // windows work, but nobody sees them ("offscreen" and "minimal" of Qt)
    Named,      // a display is named; it may still be unreachable
};

// environment returns the value of a variable, or an empty string if it is not set. Checks only the
// variables and connects to nothing.
[[nodiscard]] DisplayKind FindDisplay(const std::function<std::string(const char*)>& environment);
// Uses the environment of this process.
[[nodiscard]] DisplayKind FindDisplay();

}  // namespace quorbit
