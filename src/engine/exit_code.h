// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The exit codes of the process.

#pragma once

namespace quorbit {

enum : int {
    kExitOk = 0,      // a run without errors, or no run requested; also after a fatal message
    kExitErrors = 1,  // a run with errors
    kExitNoRun =
        2,  // no run: unreadable file, no display, another run in progress, invalid command line
};

}  // namespace quorbit
