// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs a batch file from the command line without a window.

#pragma once

#include <string>

#include "app/command_line.h"
#include "batch/machine_values.h"
#include "batch/profile.h"

namespace quorbit {

// Runs the batch file of the command line, which must name one, and returns the exit code of the
// process: kExitNoRun whenever nothing was run. Prints errors to standard error. For SIGINT,
// SIGTERM and SIGHUP see app/stop_requests.h. Blocks until the run, on a worker thread, has ended.
// Main thread only.
[[nodiscard]] int RunUnattended(const CommandLine& line, MachineValues& machine,
                                const Profile& profile);

}  // namespace quorbit
