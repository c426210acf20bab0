// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What happens when something fails: it is logged and counted, the person is asked, and the run
// goes on with the next file. Worker thread only.

#pragma once

#include <string>

#include "engine/run_context.h"
#include "platform/error.h"

namespace quorbit {

// Reports the failure of an operation on a file or folder. May set g_bStopRun: on a Yes in the
// prompt, and in an unattended run at the sixth error.
void ReportFileError(CRunContext& ctx, const Error& error);
// Reports a source folder that cannot be listed.
void ReportInvalidSource(CRunContext& ctx, const std::string& folder);
// The prompt for an invalid source folder. Asks nothing in an unattended run, or if boxes are
// suppressed.
void AskCancelRun(CRunContext& ctx, const std::string& message);

}  // namespace quorbit
