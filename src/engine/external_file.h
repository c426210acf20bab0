// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The script step.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/run_context.h"
#include "platform/error.h"
#include "platform/process_runner.h"

namespace quorbit {

// Runs a script in its folder and waits for its end. DCF_SCRIPT_DOS: the file itself if it is
// executable, else by /bin/sh. DCF_SCRIPT_WSH: the file itself if it is executable, else by the
// interpreter for its extension. A script that cannot be started is reported; what it returns is
// not used. Worker thread only.
void RunExternalFile(CRunContext& ctx, const std::string& path, std::uint32_t dwFlags);

// How a script is started: its command line, or the reason why it cannot be. nativePath is as the
// system takes it.
[[nodiscard]] Result<std::vector<std::string>> ScriptCommand(ProcessRunner& processes,
                                                             const std::string& nativePath,
                                                             std::uint32_t dwFlags);

}  // namespace quorbit
