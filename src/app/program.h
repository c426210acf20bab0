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

// Runs the program in its window and returns the exit code. If the display cannot be reached, the
// process ends with the exit code that onNoDisplay returns.
using WindowStart = std::function<int(const CommandLine&, const std::function<int()>& onNoDisplay)>;

// arguments: without the program name. Returns the exit code; errors go to standard error. Calls
// runInWindow at most once, and only if the environment names a display. With /I it is called only
// before the first start is complete, to show that switches are ignored, and only for a display
// that a user can see. Call it first in the process, on the main thread.
[[nodiscard]] int RunProgram(const std::vector<std::string>& arguments,
                             const WindowStart& runInWindow);

}  // namespace quorbit
