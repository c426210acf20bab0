// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The exit codes of the process.

#pragma once

namespace quorbit {

enum : int {
    // A complete run without errors, or no run requested. In a window also after a fatal message.
    kExitOk = 0,
    // A run with errors. Unattended, also a run that a signal stopped or whose log is incomplete.
    // Output that could not be written.
    kExitErrors = 1,
    // No run: unreadable or empty batch file, no display, another run in progress, invalid command
    // line. Unattended, whatever the reason.
    kExitNoRun = 2,
};

}  // namespace quorbit
