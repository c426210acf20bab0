// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/run_report.h"

#include "engine/run_flags.h"

namespace quorbit {
namespace {

void TellIfFailed(CRunContext& ctx, bool ok)
{
    if (!ok) {
        ctx.m_bLogIncomplete = true;
        Tell(ctx, "Error writing to the logfile.", "", PromptIcon::Stop);
    }
}

// Logs a label and a path, which is made printable.
void WriteLogPath(CRunContext& ctx, std::string_view label, std::string_view path)
{
    if (ctx.m_pLogFile) {
        TellIfFailed(ctx, ctx.m_pLogFile->Add(label, path));
    }
}

void WriteLogCount(CRunContext& ctx, const char* label, std::int32_t count)
{
    WriteLogLine(ctx, label + std::to_string(count));
}

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

void ShowFilesLeft(CRunContext& ctx)
{
    ctx.m_pDlg->ShowCounter(RunCounter::FilesLeft, ctx.m_nFilesLeft);
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

void ShowScript(CRunContext& ctx, std::string_view path)
{
    ShowCurrentFile(ctx, path, false, true);
    for (const RunText which : {RunText::DestFile, RunText::FileSize, RunText::Action}) {
        ctx.m_pDlg->ShowText(which, {});
    }
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
        // The log format compares hundreds of bytes with tenths of a kilobyte of 1,000 bytes,
        // although a kilobyte is 1,024. From 21 KB on, it therefore always adds one.
        const std::int64_t distance = size / 100 - 10 * kilobytes;
        if (distance >= 5 || distance <= -5) {
            ++kilobytes;
        }
    }
    return std::to_string(kilobytes) + " KB";
}

void EnterPhase(CRunContext& ctx, RunPhase phase)
{
    ctx.m_pDlg->OnPhase(phase, phase == RunPhase::Processing ? ctx.m_nFilesLeft : 0);
}

void ShowTotal(CRunContext& ctx, std::string_view total)
{
    ctx.m_pDlg->ShowText(RunText::TotalCount, total);
}

void ShowBytes(CRunContext& ctx, std::uint64_t bytes)
{
    ctx.m_pDlg->AddBytes(bytes);
}

void Raise(CRunContext& ctx, std::int32_t CRunContext::*counter, RunCounter which)
{
    ctx.m_pDlg->ShowCounter(which, ++(ctx.*counter));
}

void AddUnit(CRunContext& ctx)
{
    ++ctx.m_nFilesLeft;
    ShowFilesLeft(ctx);
}

bool CountGivenUp(CRunContext& ctx)
{
    if (!g_bStopCounting) {
        return false;
    }
    ctx.m_nFilesLeft = 0;
    ShowFilesLeft(ctx);
    return true;
}

void TakeOffUnit(CRunContext& ctx)
{
    if (g_bStopCounting) {
        return;
    }
    --ctx.m_nFilesLeft;
    ShowFilesLeft(ctx);
}

void ReportError(CRunContext& ctx, std::string_view logText, std::string_view text)
{
    WriteLogLine(ctx, "ERROR: " + std::string(logText));
    FlushLog(ctx);
    Raise(ctx, &CRunContext::m_nErrorCount, RunCounter::Error);
    ctx.m_pDlg->ShowError(text);
}

bool Ask(CRunContext& ctx, std::string_view text, std::string_view caption)
{
    FlushLog(ctx);
    return ctx.m_pDlg->AskYesNo(text, caption);
}

void Tell(CRunContext& ctx, std::string_view text, std::string_view caption, PromptIcon icon)
{
    ctx.m_pDlg->ShowMessage(text, caption, icon);
}

void WriteLogLine(CRunContext& ctx, std::string_view line)
{
    if (ctx.m_pLogFile) {
        TellIfFailed(ctx, ctx.m_pLogFile->Add(line));
    }
}

void WriteLogHead(CRunContext& ctx)
{
    WriteLogPath(ctx, kDocumentLabel, ctx.m_pDoc->m_strFilePath);
    WriteLogLine(ctx, "\r\nTo find file operations, search on these texts:");
    WriteLogLine(ctx,
                 "Copying File.\r\nCreate Folder.\r\nDidn't Sync File.\r\nSync File.\r\n"
                 "Delete File.\r\nDelete Folder.\r\nERROR.\r\n");
}

void WriteLogFooter(CRunContext& ctx, std::string_view elapsed, std::string_view total)
{
    WriteLogLine(ctx, "\r\n");
    WriteLogLine(ctx, "Elapsed time: " + std::string(elapsed));
    WriteLogLine(ctx, "Total Count: " + std::string(total));
    WriteLogCount(ctx, "Delete Count: ", ctx.m_nDeleteCount);
    WriteLogCount(ctx, "Sync Count: ", ctx.m_nSyncCount);
    WriteLogCount(ctx, "Didn't Sync Count: ", ctx.m_nDidntSyncCount);
    WriteLogCount(ctx, "Copy Count: ", ctx.m_nCopyCount);
    WriteLogCount(ctx, "Backup Count: ", ctx.m_nBackupCount);
    WriteLogCount(ctx, "Error Count: ", ctx.m_nErrorCount);
}

// The run mode alone selects the line, whatever caused the stop (docs/run-log.md).
void WriteLogStop(CRunContext& ctx)
{
    WriteLogLine(ctx, ctx.IsUnattended() ? "***** Error maximum was reached *****"
                                         : "\r\n**** Stopped by user. ****");
}

void FlushLog(CRunContext& ctx)
{
    if (ctx.m_pLogFile) {
        TellIfFailed(ctx, ctx.m_pLogFile->Flush());
    }
}

void FlushLogIfDue(CRunContext& ctx)
{
    if (ctx.m_pLogFile) {
        TellIfFailed(ctx, ctx.m_pLogFile->FlushIfDue());
    }
}

void CloseLog(CRunContext& ctx)
{
    if (ctx.m_pLogFile) {
        TellIfFailed(ctx, ctx.m_pLogFile->Close());
        ctx.m_pLogFile.reset();
    }
}

}  // namespace quorbit
