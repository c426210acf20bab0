// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/failure_policy.h"

#include "batch/settings.h"
#include "engine/run_flags.h"
#include "engine/run_log.h"
#include "engine/show.h"

namespace quorbit {
namespace {

// An unattended run stops when it has met more errors than this.
constexpr std::int32_t kErrorMaximum = 5;

constexpr const char* kInvalidSource = "Source path is invalid. ";
constexpr const char* kCancelQuestion = "  Do you want to CANCEL file processing?";

bool BoxesSuppressed(const CRunContext& ctx)
{
    return (ctx.m_readOptFlags() & static_cast<std::uint32_t>(kOptSuppressErrors)) != 0;
}

}  // namespace

void ReportFileError(CRunContext& ctx, const Error& error)
{
    const std::string reason = error.Text();
    // System texts bring a line end of their own.
    const std::string text = reason + "\r\n";
    if (!BoxesSuppressed(ctx) && (ctx.m_nRunMode & kRunInvisible) == 0) {
        FlushLog(ctx);
        ctx.m_clock.Pause();
        if (ctx.m_pDlg->AskYesNo(text + kCancelQuestion, "Error")) {
            g_bStopRun = 1;
        }
        ctx.m_clock.Resume();
    }
    WriteLogLine(ctx, "ERROR: " + text);
    FlushLog(ctx);
    Raise(ctx, &CRunContext::m_nErrorCount, RunCounter::Error);
    ctx.m_pDlg->ShowError(reason);
    if ((ctx.m_nRunMode & kRunInvisible) != 0 && ctx.m_nErrorCount > kErrorMaximum) {
        g_bStopRun = 1;
    }
}

void ReportInvalidSource(CRunContext& ctx, const std::string& folder)
{
    if (!BoxesSuppressed(ctx)) {
        AskCancelRun(ctx, kInvalidSource + folder);
    }
    Raise(ctx, &CRunContext::m_nErrorCount, RunCounter::Error);
    WriteLogLine(ctx, std::string("ERROR: ") + kInvalidSource);
    FlushLog(ctx);
    // The log leaves out which folder it was; whoever watches is told.
    ShowCurrentFile(ctx, folder, false, true);
    ctx.m_pDlg->ShowError(kInvalidSource);
}

void AskCancelRun(CRunContext& ctx, const std::string& message)
{
    if (ctx.m_nRunMode & kRunInvisible) {
        return;
    }
    FlushLog(ctx);
    if (ctx.m_pDlg->AskYesNo(message + kCancelQuestion, "")) {
        g_bStopRun = 1;
    }
}

}  // namespace quorbit
