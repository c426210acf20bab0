// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/failure_policy.h"

#include <utility>

#include "batch/settings.h"
#include "engine/run_flags.h"
#include "engine/run_report.h"
#include "platform/path_text.h"

namespace quorbit {
namespace {

// An unattended run stops after more errors than this.
constexpr std::int32_t kErrorMaximum = 5;

constexpr const char* kInvalidSource = "Source path is invalid. ";
constexpr const char* kPathNotFound = "  Path not found:  ";
constexpr const char* kCancelQuestion = "  Do you want to CANCEL file processing?";

bool BoxesSuppressed(const CRunContext& ctx)
{
    return ctx.IsUnattended() ||
           (ctx.m_readOptFlags() & static_cast<std::uint32_t>(kOptSuppressErrors)) != 0;
}

void AskToStop(CRunContext& ctx, const std::string& message, std::string_view caption)
{
    if (Ask(ctx, message + kCancelQuestion, caption)) {
        g_bStopRun = 1;
    }
}

void Keep(CRunContext& ctx, ProblemSeverity severity, ProblemSubject subject, ErrorKind kind,
          std::string text)
{
    ctx.m_problems.Add({severity, ctx.m_nEntry, std::move(subject), kind, std::move(text)});
}

}  // namespace

void ReportFileError(CRunContext& ctx, ProblemSubject subject, const Error& error)
{
    Keep(ctx, ProblemSeverity::Error, std::move(subject), error.Kind(), error.Text());
    const std::string reason = error.Text();
    // The log format ends system messages with a line end of their own (docs/run-log.md).
    const std::string text = reason + "\r\n";
    if (!BoxesSuppressed(ctx)) {
        // The elapsed time does not include the time that the user takes to answer.
        ctx.m_clock.Pause();
        AskToStop(ctx, text, "Error");
        ctx.m_clock.Resume();
    }
    ReportError(ctx, text, reason);
    if (ctx.IsUnattended() && ctx.m_nErrorCount > kErrorMaximum) {
        g_bStopRun = 1;
    }
}

void ReportInvalidSource(CRunContext& ctx, const std::string& folder, const Error& error)
{
    Keep(ctx, ProblemSeverity::Error, {RunOperation::ListFolder, folder, {}}, error.Kind(),
         error.Text());
    AskCancelRun(ctx, kInvalidSource + folder);
    const std::string reason = error.Text();
    ShowCurrentFile(ctx, folder, false, true);
    ReportError(ctx, kInvalidSource + (kPathNotFound + Printable(folder) + ": " + reason),
                kInvalidSource + reason);
}

void ReportWarning(CRunContext& ctx, ProblemSubject subject, ErrorKind kind, std::string text)
{
    const std::string& path = subject.source.empty() ? subject.destination : subject.source;
    ctx.m_pDlg->ShowWarning(path.empty() ? text : path + ": " + text);
    Keep(ctx, ProblemSeverity::Warning, std::move(subject), kind, std::move(text));
}

void AskCancelRun(CRunContext& ctx, const std::string& message)
{
    if (!BoxesSuppressed(ctx)) {
        AskToStop(ctx, message, "");
    }
}

}  // namespace quorbit
