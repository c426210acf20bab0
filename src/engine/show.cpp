// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/show.h"

#include "engine/run_flags.h"
#include "engine/run_log.h"

namespace quorbit {
namespace {

void ShowPath(CRunContext& ctx, RunText which, std::string_view label, std::string_view path,
              bool bLog, bool bShow)
{
    if (bShow) {
        ctx.m_pDlg->ShowText(which, path);
    }
    if (bLog) {
        WriteLogPath(ctx, label, path);
    }
}

}  // namespace

void ShowAction(CRunContext& ctx, std::string_view text)
{
    ctx.m_pDlg->ShowText(RunText::Action, text);
    WriteLogLine(ctx, "\r\nAction: " + std::string(text));
}

void ShowCurrentFile(CRunContext& ctx, std::string_view path, bool bLog, bool bShow)
{
    ShowPath(ctx, RunText::CurrentFile, "Current File: ", path, bLog, bShow);
}

void ShowDestFile(CRunContext& ctx, std::string_view path, bool bLog, bool bShow)
{
    ShowPath(ctx, RunText::DestFile, "Destination File: ", path, bLog, bShow);
}

void ShowFileSize(CRunContext& ctx, std::uint64_t bytes, bool bLog, bool bShow)
{
    const std::string text = FileSizeText(bytes);
    if (bShow) {
        ctx.m_pDlg->ShowText(RunText::FileSize, text);
    }
    if (bLog) {
        WriteLogLine(ctx, "File Size: " + text);
    }
}

std::string FileSizeText(std::uint64_t bytes)
{
    const std::int64_t size = static_cast<std::uint32_t>(bytes);
    std::int64_t kilobytes = 1;
    if (size >= 1024) {
        kilobytes = size / 1024;
        // Hundreds of bytes against tenths of the kilobytes: rounds up from about 21 KB on.
        const std::int64_t distance = size / 100 - 10 * kilobytes;
        if (distance >= 5 || distance <= -5) {
            ++kilobytes;
        }
    }
    return std::to_string(kilobytes) + " KB";
}

void Raise(CRunContext& ctx, std::int32_t CRunContext::*counter, RunCounter which)
{
    ctx.m_pDlg->ShowCounter(which, ++(ctx.*counter));
}

void TakeOffUnit(CRunContext& ctx)
{
    if (g_bStopCounting) {
        return;
    }
    ctx.m_pDlg->ShowCounter(RunCounter::FilesLeft, --ctx.m_nFilesLeft);
    ctx.m_pDlg->StepProgress();
}

}  // namespace quorbit
