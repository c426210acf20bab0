// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs the process from its arguments to its exit code. It evaluates the command line before
// anything needs a display, so that unattended runs and the options that only print work without
// one.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/command_line.h"

namespace quorbit {

// Runs the program in its window and returns the exit code. Requires a display.
using WindowStart = std::function<int(const CommandLine&)>;

// arguments: without the program name. Returns the exit code; errors go to standard error. Calls
// runInWindow at most once, and only if HasDisplay() returns true. With /I it is called only before
// the first start is complete, to show that switches are ignored. Main thread only.
[[nodiscard]] int RunProgram(const std::vector<std::string>& arguments,
                             const WindowStart& runInWindow);

}  // namespace quorbit
