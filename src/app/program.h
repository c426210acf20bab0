// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The process from its arguments to its exit code. It decides what the command line asks for before
// anything needs a display, so that /I and the printing options never see a window.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/command_line.h"

namespace quorbit {

// Runs the program with its window and returns its exit code. Needs a display.
using WindowStart = std::function<int(const CommandLine&)>;

// arguments come without the name of the program. runInWindow is called at most once, and only
// where HasDisplay() says that there is a display.
[[nodiscard]] int RunProgram(const std::vector<std::string>& arguments,
                             const WindowStart& runInWindow);

}  // namespace quorbit
