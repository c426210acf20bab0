// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Logs and counts an error and asks the user whether to cancel. Otherwise the run continues with
// the next file. Every error and warning is also kept in CRunContext::m_problems. Worker thread
// only.

#pragma once

#include <string>

#include "engine/run_context.h"
#include "platform/error.h"

namespace quorbit {

// Reports a failed operation on a file or folder. Sets g_bStopRun if the user answers Yes, and in
// an unattended run at the sixth error.
void ReportFileError(CRunContext& ctx, ProblemSubject subject, const Error& error);
// Reports a source folder that cannot be listed, and why. Sets g_bStopRun if the user answers Yes.
void ReportInvalidSource(CRunContext& ctx, const std::string& folder, const Error& error);
// Reports that work was done, but not entirely as requested. Shows the text after the path of the
// subject. Changes neither the log nor the counters nor the exit code.
void ReportWarning(CRunContext& ctx, ProblemSubject subject, ErrorKind kind, std::string text);
// Asks whether to cancel after an invalid source folder; Yes sets g_bStopRun. Does nothing in an
// unattended run or if error boxes are off.
void AskCancelRun(CRunContext& ctx, const std::string& message);

}  // namespace quorbit
