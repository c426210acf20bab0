// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The exit codes of the process.

#pragma once

namespace quorbit {

enum : int {
    kExitOk =
        0,  // a run without errors, or nothing was asked for; also the end after a fatal message
    kExitErrors = 1,  // a run that met errors
    kExitNoRun =
        2,  // there was no run: unreadable file, no display, another run is on, wrong words
};

}  // namespace quorbit
