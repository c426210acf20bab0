// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The program with its window, from the first window to the exit code.

#pragma once

#include "app/command_line.h"

namespace quorbit {

// Makes the one QApplication of the process, for which there must be a display, and returns when
// the program is over, with its exit code. A display that refuses is told on standard error.
[[nodiscard]] int RunInWindow(const CommandLine& line, const char* programName);

}  // namespace quorbit
