// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs the program with its window. Main thread only.

#pragma once

#include "app/command_line.h"

namespace quorbit {

// Creates the QApplication, which requires a display, runs the event loop and returns the exit
// code. If the display refuses the connection, prints an error to standard error and exits with
// kExitNoRun.
[[nodiscard]] int RunInWindow(const CommandLine& line, const char* programName);

}  // namespace quorbit
