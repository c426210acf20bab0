// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/run_driver.h"

#include <memory>
#include <string>

#include "engine/external_file.h"
#include "engine/failure_policy.h"
#include "engine/file_operations.h"
#include "engine/folder_deletion.h"
#include "engine/run_flags.h"
#include "engine/run_report.h"
#include "engine/tree_walk.h"
#include "platform/path_text.h"

namespace quorbit {
namespace {

constexpr const char* kUnknownTotal = "Unknown";

bool IsFolderList(const CDirCopy& entry)
{
    return !entry.m_listFolderTypes.empty() || (entry.m_dwFlags & DCF_FOLDER_ITEMS) != 0;
}

bool IsScript(const CDirCopy& entry)
{
    return (entry.m_dwFlags & (DCF_SCRIPT_WSH | DCF_SCRIPT_DOS)) != 0;
}

WalkRules RulesFor(const CDirCopy& entry, const std::vector<std::string>& list)
{
    return {list, entry.m_dwFlags, entry.m_dwFlags & DCF_ATTR_MASK, EffectiveKind(entry), {}};
}

// The folder that an item of a folder list names, and what it is called at the destination.
struct ListedFolder {
    std::string source;  // with a closing separator
    std::string name;
};

ListedFolder ResolveListItem(const CDirCopy& entry, const std::string& item)
{
    if (entry.m_strSource == kMyComputer) {
        return {WithSeparator(item), VolumeName(item)};
    }
    // Without a source the item alone would be a folder of the current one, and without an item the
    // source itself would go.
    if (entry.m_strSource.empty() || item.empty()) {
        return {"", item};
    }
    return {WithSeparator(WithSeparator(entry.m_strSource) + item), item};
}

// Where a listed folder goes. Below an open destination by its name, unless it is more than a name.
std::unique_ptr<TargetFolder> ListedTarget(FileSystem& files, TargetFolder& dest,
                                           const std::string& name)
{
    const bool plain = !name.empty() && name.find(SeparatorOf(dest.Path())) == std::string::npos;
    if (plain || dest.Path().empty()) {
        return std::make_unique<TargetFolder>(dest, name);
    }
    return std::make_unique<TargetFolder>(files, dest.Path() + name);
}

// The destination, if it is to be kept out of the walk of its own source.
bool HasDestination(const CDirCopy& entry)
{
    return (entry.m_dwFlags & DCF_DELETE) == 0 && !IsScript(entry) && !entry.m_strDest.empty();
}

bool CountFolderList(CRunContext& ctx, const CDirCopy& entry)
{
    WalkRules rules = RulesFor(entry, entry.m_listFolderTypes);
    TargetFolder dest(*ctx.m_pFiles, entry.m_strDest);
    for (const std::string& item : entry.m_listItems) {
        const ListedFolder folder = ResolveListItem(entry, item);
        if (rules.Has(DCF_DELETE_FOLDER)) {
            AddUnit(ctx);
            continue;
        }
        const auto itemDest = ListedTarget(*ctx.m_pFiles, dest, folder.name);
        if (HasDestination(entry)) {
            rules.avoid = {&dest, itemDest.get()};
        }
        if (!CountFolder(ctx, folder.source, rules)) {
            return false;
        }
    }
    return true;
}

bool CountSingleFolder(CRunContext& ctx, const CDirCopy& entry)
{
    WalkRules rules = RulesFor(entry, entry.m_listItems);
    TargetFolder dest(*ctx.m_pFiles, entry.m_strDest);
    if (HasDestination(entry)) {
        rules.avoid = {&dest};
    }
    return CountFolder(ctx, WithSeparator(entry.m_strSource), rules);
}

// False when the count was given up.
bool CountEntry(CRunContext& ctx, const CDirCopy& entry)
{
    if (entry.m_nKind == DCK_TYPES && (entry.m_dwFlags & DCF_DELETE_FOLDER) != 0) {
        AddUnit(ctx);
        return true;
    }
    return IsFolderList(entry) ? CountFolderList(ctx, entry) : CountSingleFolder(ctx, entry);
}

bool ProcessFolderList(CRunContext& ctx, const CDirCopy& entry, ReadAheadPolicy& readAhead)
{
    WalkRules rules = RulesFor(entry, entry.m_listFolderTypes);
    TargetFolder dest(*ctx.m_pFiles, entry.m_strDest);
    for (const std::string& item : entry.m_listItems) {
        const ListedFolder folder = ResolveListItem(entry, item);
        if (rules.Has(DCF_DELETE_FOLDER)) {
            DeleteWholeFolder(ctx, folder.source, rules);
            continue;
        }
        const auto itemDest = ListedTarget(*ctx.m_pFiles, dest, folder.name);
        if (!rules.Has(DCF_DELETE)) {
            const auto like = ctx.m_pFiles->OpenFolder(folder.source);
            EnsureFolder(ctx, folder.source, *itemDest, itemDest->Path(),
                         like ? like->get() : nullptr);
            rules.avoid = {&dest, itemDest.get()};
        }
        if (!ProcessFolder(ctx, folder.source, *itemDest, rules, readAhead)) {
            return false;
        }
    }
    return true;
}

bool ProcessSingleFolder(CRunContext& ctx, const CDirCopy& entry, ReadAheadPolicy& readAhead)
{
    const std::string source = WithSeparator(entry.m_strSource);
    WalkRules rules = RulesFor(entry, entry.m_listItems);
    if (rules.nKind == DCK_TYPES && rules.Has(DCF_DELETE_FOLDER)) {
        DeleteWholeFolder(ctx, source, rules);
        return true;
    }
    TargetFolder dest(*ctx.m_pFiles, entry.m_strDest);
    if (!rules.Has(DCF_DELETE)) {
        rules.avoid = {&dest};
        // An entry of names gets its folder when its first file arrives.
        if (rules.nKind == DCK_TYPES) {
            const auto like = ctx.m_pFiles->OpenFolder(source);
            EnsureFolder(ctx, source, dest, dest.Path(), like ? like->get() : nullptr);
        }
    }
    return ProcessFolder(ctx, source, dest, rules, readAhead);
}

bool ProcessEntry(CRunContext& ctx, const CDirCopy& entry, ReadAheadPolicy& readAhead)
{
    if (IsFolderList(entry)) {
        return ProcessFolderList(ctx, entry, readAhead);
    }
    if (IsScript(entry)) {
        RunExternalFile(ctx, entry.m_strSource, entry.m_dwFlags);
        return true;
    }
    return ProcessSingleFolder(ctx, entry, readAhead);
}

// Both passes. False only if the process pass was cut short.
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

// What the log calls done is on the disk when it says so.
void SyncDestinations(CRunContext& ctx)
{
    FlushLog(ctx);
    if (!ctx.m_bSyncAtEnd) {
        return;
    }
    const Status synced = ctx.m_pFiles->SyncWritten();
    if (!synced) {
        ReportFileError(ctx, synced.GetError());
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
    ReadAheadPolicy readAhead;
    for (const CDirCopy& entry : ctx.m_pDoc->m_arrEntries) {
        if (g_bStopRun || !ProcessEntry(ctx, entry, readAhead) || g_bStopRun) {
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

    SyncDestinations(ctx);
    EnterPhase(ctx, RunPhase::Finishing);
    WriteTotals(ctx, total);
    g_bStopRun = 1;
    EnterPhase(ctx, RunPhase::Ended);
    if (stopped && !ctx.IsUnattended()) {
        Tell(ctx, "Process canceled by user.  Hit OK to continue.", "Process stopped.",
             PromptIcon::None);
    }
    CloseLog(ctx);

    if (ctx.m_nRunMode & (kRunInvisible | kRunAndQuit)) {
        if (ctx.m_nErrorCount > 0) {
            ctx.m_setExitCode(1);
        }
        EnterPhase(ctx, RunPhase::Closed);
    }
    return 0;
}

}  // namespace quorbit
