// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/tree_walk.h"

#include <memory>
#include <utility>

#include "engine/failure_policy.h"
#include "engine/file_operations.h"
#include "engine/folder_items.h"
#include "engine/run_flags.h"
#include "engine/run_report.h"
#include "engine/source_queue.h"

namespace quorbit {
namespace {

bool CountListing(CRunContext& ctx, const Folder& folder, const WalkRules& rules,
                  StepTarget& target);

bool CountSubfolder(CRunContext& ctx, const Folder& folder, const std::string& name,
                    const WalkRules& rules, StepTarget& target)
{
    const auto subfolder = ctx.m_pFiles->OpenSubfolder(folder, name);
    if (!subfolder || target.IsAt((*subfolder)->Identity())) {
        return true;
    }
    return CountListing(ctx, **subfolder, rules, target);
}

// Returns false if the user gave up counting. Listing errors are reported by the process pass.
bool CountListing(CRunContext& ctx, const Folder& folder, const WalkRules& rules,
                  StepTarget& target)
{
    auto items = FolderItems::List(*ctx.m_pFiles, folder);
    if (!items) {
        return true;
    }
    FindData item;
    for (;;) {
        const auto more = items->Next(item);
        if (!more || !*more) {
            return true;
        }
        if (CountGivenUp(ctx)) {
            return false;
        }
        if (!rules.Takes(item)) {
            continue;
        }
        if (item.kind != ItemKind::Folder) {
            AddUnit(ctx);
        } else if (!CountSubfolder(ctx, folder, item.name, rules, target)) {
            return false;
        }
    }
}

// Processes one source folder and its subfolders.
class ProcessWalk {
public:
    ProcessWalk(CRunContext& ctx, const WalkRules& rules, StepTarget& target, WalkMemory& memory)
        : m_ctx(ctx), m_rules(rules), m_target(target), m_memory(memory)
    {
    }

    // opened: the folder, or the error if it could not be opened. Returns false if a stop was
    // requested before it started.
    bool Process(const std::string& source, const Result<std::unique_ptr<Folder>>& opened,
                 TargetFolder& dest);

private:
    bool ProcessSubfolder(const SourceFolder& source, const std::string& name, TargetFolder& dest);
    bool ProcessItem(const SourceFolder& source, TargetFolder& dest, QueuedItem& item);
    bool ProcessFile(const SourceFolder& source, TargetFolder& dest, QueuedItem& item);
    bool ActOnFile(const SourceFolder& source, TargetFolder& dest, QueuedItem& item);

    CRunContext& m_ctx;
    const WalkRules& m_rules;
    StepTarget& m_target;
    WalkMemory& m_memory;
    std::string m_path;      // of the current file; a member to reuse its memory
    std::string m_destPath;  // its destination
};

bool ProcessWalk::Process(const std::string& source, const Result<std::unique_ptr<Folder>>& opened,
                          TargetFolder& dest)
{
    if (g_bStopRun) {
        return false;
    }
    if (!opened) {
        ReportInvalidSource(m_ctx, source, opened.GetError());
        return true;
    }
    const SourceFolder folder{source, **opened};
    auto items = FolderItems::List(*m_ctx.m_pFiles, folder.handle);
    if (!items) {
        ReportInvalidSource(m_ctx, source, items.GetError());
        return true;
    }
    FlushLogIfDue(m_ctx);
    SourceQueue queue(*m_ctx.m_pFiles, folder.handle, *items, m_rules, m_memory.readAhead);
    QueuedItem item;
    for (;;) {
        const auto more = queue.Next(item);
        if (!more) {
            // Report it: an incomplete listing must not look like the end of the folder.
            ReportFileError(m_ctx, {RunOperation::ListFolder, source, {}}, more.GetError());
            return true;
        }
        if (!*more || g_bStopRun || !ProcessItem(folder, dest, item) || dest.IsGivenUp()) {
            return true;
        }
    }
}

// Returns false to end the listing.
bool ProcessWalk::ProcessItem(const SourceFolder& source, TargetFolder& dest, QueuedItem& item)
{
    if (item.data.kind == ItemKind::Folder) {
        return ProcessSubfolder(source, item.data.name, dest);
    }
    return ProcessFile(source, dest, item);
}

bool ProcessWalk::ProcessSubfolder(const SourceFolder& source, const std::string& name,
                                   TargetFolder& dest)
{
    const auto opened = m_ctx.m_pFiles->OpenSubfolder(source.handle, name);
    if (opened && m_target.IsAt((*opened)->Identity())) {
        return true;
    }
    const std::string path = SubfolderPath(source.path, name);
    if (m_rules.Deletes() || !m_rules.Has(DCF_PRESERVE_TREE)) {
        return Process(path, opened, dest);
    }
    TargetFolder subfolder(dest, name);
    if (!EnsureFolder(m_ctx, path, subfolder, dest.Path() + name,
                      opened ? opened->get() : nullptr)) {
        return true;  // reported; nothing in it can be copied
    }
    if (!ClaimFolder(m_ctx, path, dest, subfolder, name)) {
        return true;
    }
    const bool processed = Process(path, opened, subfolder);
    if (opened) {
        KeepFolderTime(m_ctx, {path, **opened}, subfolder);
    }
    return processed;
}

bool ProcessWalk::ProcessFile(const SourceFolder& source, TargetFolder& dest, QueuedItem& item)
{
    m_path.assign(source.path).append(item.data.name);
    ShowCurrentFile(m_ctx, m_path, false, true);
    ShowFileSize(m_ctx, item.data.size, false, true);
    if (!m_rules.Deletes()) {
        m_destPath.assign(dest.Path()).append(item.data.name);
    }
    ShowDestFile(m_ctx, m_destPath, false, true);  // empty while deleting

    if (!ActOnFile(source, dest, item) || g_bStopRun || dest.IsGivenUp()) {
        return false;
    }
    TakeOffUnit(m_ctx);
    ShowCurrentFile(m_ctx, m_path, true, false);
    if (!m_rules.Deletes()) {
        ShowDestFile(m_ctx, m_destPath, true, false);
    }
    ShowFileSize(m_ctx, item.data.size, true, false);
    return true;
}

// Returns false if a stop was requested before the file was processed.
bool ProcessWalk::ActOnFile(const SourceFolder& source, TargetFolder& dest, QueuedItem& item)
{
    Status known = item.details;
    if (known && !m_rules.Has(DCF_NO_ATTRS)) {
        known = m_ctx.m_pFiles->ReadAttributes(source.handle, item.data);
    }
    if (!known) {
        // The file was removed after it was listed, or its details cannot be read.
        ShowAction(m_ctx, m_rules.Deletes() ? "Delete File." : "Copying File.");
        ReportFileError(m_ctx,
                        {m_rules.Deletes() ? RunOperation::DeleteFile : RunOperation::Copy, m_path,
                         m_rules.Deletes() ? std::string() : m_destPath},
                        known.GetError());
        return true;
    }
    if (!m_rules.PassesFilter(item.data.attributes)) {
        ShowAction(m_ctx, "Didn't process file because file attributes didn't match.");
        return true;
    }
    if (g_bStopRun) {
        return false;
    }
    if (m_rules.Deletes()) {
        DeleteOneFile(m_ctx, source, item.data.name);
    } else {
        TransferFile(m_ctx, source, dest, item.data, item.source.get(),
                     {m_rules.dwFlags, m_memory.hardLinks});
    }
    // Close the file now; the item is reused only for the next one.
    item.source.reset();
    return true;
}

}  // namespace

bool CountFolder(CRunContext& ctx, const std::string& folder, StepTarget& target,
                 const WalkRules& rules)
{
    const auto opened = ctx.m_pFiles->OpenFolder(folder);
    return !opened || CountListing(ctx, **opened, rules, target);
}

bool ProcessFolder(CRunContext& ctx, const std::string& source, StepTarget& target,
                   const WalkRules& rules, WalkMemory& memory)
{
    const auto opened = ctx.m_pFiles->OpenFolder(source);
    const bool processed =
        ProcessWalk(ctx, rules, target, memory).Process(source, opened, target.Folder());
    if (opened && target.MirrorsSource() && rules.Has(DCF_PRESERVE_TREE)) {
        KeepFolderTime(ctx, {source, **opened}, target.Folder());
    }
    return processed;
}

}  // namespace quorbit
