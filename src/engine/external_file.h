// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs the script of a script entry. Worker thread only.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/run_context.h"
#include "platform/error.h"
#include "platform/process_runner.h"

namespace quorbit {

// Runs a script in its folder and waits for it. Executes an executable file directly. Otherwise
// uses /bin/sh for DCF_SCRIPT_DOS, and the interpreter for the extension for DCF_SCRIPT_WSH.
// Reports an error if the script cannot be started, and a warning if it ends with an exit status
// other than 0 or by a signal.
void RunExternalFile(CRunContext& ctx, const std::string& path, std::uint32_t dwFlags);

// Returns the command line of a script, or the reason why it cannot be started. nativePath: a path
// of the operating system, not a drive path.
[[nodiscard]] Result<std::vector<std::string>> ScriptCommand(ProcessRunner& processes,
                                                             const std::string& nativePath,
                                                             std::uint32_t dwFlags);

}  // namespace quorbit
