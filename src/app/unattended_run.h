// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A batch file run from the command line without a window.

#pragma once

#include <string>

#include "app/command_line.h"
#include "batch/machine_values.h"
#include "batch/profile.h"

namespace quorbit {

// Runs the file that the command line names, or an empty document if it names none, and gives the
// exit code of the process. Says on standard error what went wrong. SIGINT, SIGTERM and SIGHUP stop
// the run as its Cancel button would.
[[nodiscard]] int RunUnattended(const CommandLine& line, MachineValues& machine,
                                const Profile& profile);

}  // namespace quorbit
