// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs the program with its window. Main thread only.

#pragma once

#include <functional>

#include "app/command_line.h"

namespace quorbit {

// Creates the QApplication, which requires a display, runs the event loop and returns the exit
// code. If the display refuses the connection, ends the process with the exit code that onNoDisplay
// returns; it is called before there is an application object.
[[nodiscard]] int RunInWindow(const CommandLine& line, const char* programName,
                              const std::function<int()>& onNoDisplay);

}  // namespace quorbit
