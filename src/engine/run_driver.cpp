// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/run_driver.h"

#include <algorithm>
#include <string>
#include <vector>

#include "batch/entry_texts.h"
#include "engine/entry_plan.h"
#include "engine/external_file.h"
#include "engine/failure_policy.h"
#include "engine/file_operations.h"
#include "engine/folder_deletion.h"
#include "engine/run_flags.h"
#include "engine/run_report.h"
#include "engine/step_target.h"
#include "engine/tree_walk.h"

namespace quorbit {
namespace {

// Shown instead of the total if the user gave up counting.
constexpr const char* kUnknownTotal = "Unknown";

// Returns false if the user gave up counting.
bool CountStep(CRunContext& ctx, const WalkRules& rules, TargetFolder& dest, const PlanStep& step)
{
    if (!step.oneUnit) {
        StepTarget target(*ctx.m_pFiles, dest, step);
        return CountFolder(ctx, step.source, target, rules);
    }
    // Folders to delete are counted even if the user gave up counting.
    if (step.kind != StepKind::DeleteFolder && CountGivenUp(ctx)) {
        return false;
    }
    AddUnit(ctx);
    return true;
}

bool CountEntry(CRunContext& ctx, const CDirCopy& entry)
{
    if (!CheckTexts(entry)) {
        return true;  // reported by the process pass
    }
    const EntryPlan plan = PlanOf(entry);
    if (plan.oneUnit) {
        AddUnit(ctx);
        return true;
    }
    TargetFolder dest(*ctx.m_pFiles, plan.destination);
    return std::ranges::all_of(
        plan.steps, [&](const PlanStep& step) { return CountStep(ctx, plan.rules, dest, step); });
}

// Returns false if a stop was requested before a walk started.
bool ProcessStep(CRunContext& ctx, const WalkRules& rules, TargetFolder& dest, const PlanStep& step,
                 WalkMemory& memory)
{
    if (step.kind == StepKind::RunScript) {
        RunExternalFile(ctx, step.source, rules.dwFlags);
        return true;
    }
    if (step.kind == StepKind::DeleteFolder) {
        DeleteWholeFolder(ctx, step.source, rules);
        return true;
    }
    if (dest.IsGivenUp()) {
        return true;
    }
    StepTarget target(*ctx.m_pFiles, dest, step);
    if (step.makesTarget) {
        TargetFolder& folder = target.Folder();
        const auto like = ctx.m_pFiles->OpenFolder(step.source);
        if (!EnsureFolder(ctx, step.source, folder, folder.Path(), like ? like->get() : nullptr)) {
            // The other steps then need no error of their own.
            if (!dest.Stands()) {
                dest.GiveUp();
            }
            return true;
        }
        if (!step.targetName.empty() &&
            !ClaimFolder(ctx, step.source, dest, folder, step.targetName)) {
            return true;
        }
    }
    return ProcessFolder(ctx, step.source, target, rules, memory);
}

// Reports the source folder of a folder list if it does not exist, for example because a disk is
// not mounted: one error instead of one for each folder of the list. A folder that exists and
// cannot be listed is no obstacle, because its subfolders may be accessible.
bool IsUnreachable(CRunContext& ctx, const std::string& listSource)
{
    if (listSource.empty()) {
        return false;
    }
    const auto opened = ctx.m_pFiles->OpenFolder(listSource);
    if (opened || (opened.GetError().Kind() != ErrorKind::Missing &&
                   opened.GetError().Kind() != ErrorKind::NotAFolder)) {
        return false;
    }
    ReportInvalidSource(ctx, listSource, opened.GetError());
    return true;
}

// What the entries of a run share.
struct RunMemory {
    Lanes& lanes;
    ReadAheadPolicy& readAhead;
};

bool ProcessEntry(CRunContext& ctx, const CDirCopy& entry, const RunMemory& shared)
{
    if (const Status texts = CheckTexts(entry); !texts) {
        ShowCurrentFile(ctx, entry.m_strSource, false, true);
        ReportFileError(ctx, {RunOperation::ReadEntry, entry.m_strSource, entry.m_strDest},
                        texts.GetError());
        return true;
    }
    const EntryPlan plan = PlanOf(entry);
    if (IsUnreachable(ctx, plan.listSource)) {
        return true;
    }
    TargetFolder dest(*ctx.m_pFiles, plan.destination);
    HardLinks hardLinks;
    WalkMemory memory{shared.lanes, shared.readAhead, hardLinks};
    return std::ranges::all_of(plan.steps, [&](const PlanStep& step) {
        return ProcessStep(ctx, plan.rules, dest, step, memory);
    });
}

// Runs both passes. Returns false only if the process pass was stopped.
bool RunPasses(CRunContext& ctx, std::string& total)
{
    if (g_bStopRun) {
        return true;
    }
    EnterPhase(ctx, RunPhase::Counting);
    WriteLogHead(ctx);
    FlushLog(ctx);
    if (!CountEntries(ctx)) {
        return true;
    }
    total = g_bStopCounting ? kUnknownTotal : std::to_string(ctx.m_nFilesLeft);
    ShowTotal(ctx, total);
    EnterPhase(ctx, RunPhase::Processing);
    if (g_bStopRun) {
        return true;
    }
    if (ProcessEntries(ctx)) {
        return true;
    }
    WriteLogStop(ctx);
    return false;
}

// Syncs the copies, unless switched off, before the footer reports the totals. Writes the log lines
// first, because a sync may take long.
void SyncDestinations(CRunContext& ctx)
{
    ctx.m_nEntry = RunProblem::kNoEntry;
    FlushLog(ctx);
    if (!ctx.m_bSyncAtEnd) {
        return;
    }
    const Status synced = ctx.m_pFiles->SyncWritten();
    if (!synced) {
        // It is not about the file that was processed last.
        ShowCurrentFile(ctx, {}, false, true);
        ReportFileError(ctx, {RunOperation::WriteToDisk, {}, {}}, synced.GetError());
    }
}

void WriteTotals(CRunContext& ctx, std::string total)
{
    ctx.m_clock.Stop();
    if (total == kUnknownTotal) {
        total = std::to_string(ctx.m_nCopyCount + ctx.m_nSyncCount + ctx.m_nDeleteCount +
                               ctx.m_nDidntSyncCount);
        ShowTotal(ctx, total);
    }
    WriteLogFooter(ctx, ctx.m_clock.Text(), total);
    FlushLog(ctx);
}

}  // namespace

bool CountEntries(CRunContext& ctx)
{
    for (const CDirCopy& entry : ctx.m_pDoc->m_arrEntries) {
        if (g_bStopRun) {
            return false;
        }
        if (!CountEntry(ctx, entry)) {
            return true;
        }
        if (g_bStopRun) {
            return false;
        }
    }
    return true;
}

bool ProcessEntries(CRunContext& ctx)
{
    Lanes lanes(ctx.m_nLanes);
    ReadAheadPolicy readAhead;
    const std::vector<CDirCopy>& entries = ctx.m_pDoc->m_arrEntries;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        ctx.m_nEntry = i;
        if (g_bStopRun || !ProcessEntry(ctx, entries[i], {lanes, readAhead}) || g_bStopRun) {
            return false;
        }
    }
    return true;
}

unsigned RunThreadProc(CRunContext* pCtx)
{
    CRunContext& ctx = *pCtx;
    std::string total = "0";
    bool stopped = false;
    if (ctx.m_pDoc->m_arrEntries.empty()) {
        Tell(ctx, "The Batch File is empty.", "", PromptIcon::Exclamation);
    } else {
        stopped = !RunPasses(ctx, total);
    }

    if (g_bStopRun) {
        ctx.m_clock.Stop();  // the elapsed time ends with the work
    }
    SyncDestinations(ctx);
    EnterPhase(ctx, RunPhase::Finishing);
    WriteTotals(ctx, total);
    // From here on, the flag means that the run has ended.
    g_bStopRun = 1;
    EnterPhase(ctx, RunPhase::Ended);
    if (stopped && !ctx.IsUnattended()) {
        Tell(ctx, "Process canceled by user.  Hit OK to continue.", "Process stopped.",
             PromptIcon::None);
    }
    CloseLog(ctx);

    if (ctx.m_nRunMode & (kRunInvisible | kRunAndQuit)) {
        if (ctx.m_nErrorCount > 0) {
            ctx.m_nExitCode = kExitErrors;
        }
        // Last, because the context may no longer exist afterwards.
        EnterPhase(ctx, RunPhase::Closed);
    }
    return 0;
}

}  // namespace quorbit
