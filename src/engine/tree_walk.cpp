// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/tree_walk.h"

#include <memory>
#include <utility>

#include "engine/failure_policy.h"
#include "engine/file_operations.h"
#include "engine/run_flags.h"
#include "engine/run_report.h"
#include "engine/source_queue.h"
#include "platform/path_text.h"

namespace quorbit {
namespace {

std::string Subfolder(const std::string& folder, const std::string& name)
{
    return folder + name + SeparatorOf(folder);
}

bool CountListing(CRunContext& ctx, const Folder& folder, const WalkRules& rules);

bool CountSubfolder(CRunContext& ctx, const Folder& folder, const std::string& name,
                    const WalkRules& rules)
{
    const auto subfolder = ctx.m_pFiles->OpenSubfolder(folder, name);
    if (!subfolder || rules.Avoids(**subfolder)) {
        return true;
    }
    return CountListing(ctx, **subfolder, rules);
}

bool CountListing(CRunContext& ctx, const Folder& folder, const WalkRules& rules)
{
    auto listing = ctx.m_pFiles->List(folder);
    if (!listing) {
        return true;
    }
    FindData item;
    for (;;) {
        const auto more = (*listing)->Next(item);
        if (!more || !*more || g_bStopRun) {
            return true;
        }
        if (CountGivenUp(ctx)) {
            return false;
        }
        if (item.kind == ItemKind::Unknown) {
            (void)ctx.m_pFiles->ReadDetails(folder, item);
        }
        if (item.kind == ItemKind::Folder) {
            if (rules.Has(DCF_SUBFOLDERS) && !CountSubfolder(ctx, folder, item.name, rules)) {
                return false;
            }
        } else if (!item.leftover && rules.SelectsName(item.name)) {
            AddUnit(ctx);
        }
    }
}

// The pass over one source folder and what lies below it.
class ProcessWalk {
public:
    ProcessWalk(CRunContext& ctx, const WalkRules& rules, ReadAheadPolicy& readAhead)
        : m_ctx(ctx), m_rules(rules), m_readAhead(readAhead)
    {
    }

    // opened: the folder, or the reason why it is not.
    bool Process(const std::string& source, const Result<std::unique_ptr<Folder>>& opened,
                 TargetFolder& dest);

private:
    bool ProcessSubfolder(const SourceFolder& source, const std::string& name, TargetFolder& dest);
    bool ProcessItem(const SourceFolder& source, TargetFolder& dest, QueuedItem& item);
    bool ProcessFile(const SourceFolder& source, TargetFolder& dest, QueuedItem& item);
    bool ActOnFile(const SourceFolder& source, TargetFolder& dest, QueuedItem& item);
    bool Deletes() const { return m_rules.Has(DCF_DELETE); }

    CRunContext& m_ctx;
    const WalkRules& m_rules;
    ReadAheadPolicy& m_readAhead;
    std::string m_path;      // of the file that is worked on
    std::string m_destPath;  // where it goes
};

bool ProcessWalk::Process(const std::string& source, const Result<std::unique_ptr<Folder>>& opened,
                          TargetFolder& dest)
{
    if (g_bStopRun) {
        return false;
    }
    if (!opened) {
        ReportInvalidSource(m_ctx, source);
        return true;
    }
    const SourceFolder folder{source, **opened};
    auto listing = m_ctx.m_pFiles->List(folder.handle);
    if (!listing) {
        ReportInvalidSource(m_ctx, source);
        return true;
    }
    FlushLogIfDue(m_ctx);
    SourceQueue queue(*m_ctx.m_pFiles, folder.handle, **listing, m_rules, m_readAhead);
    QueuedItem item;
    for (;;) {
        const auto more = queue.Next(item);
        if (!more) {
            // A listing that breaks off must not pass for a folder that ends there.
            ReportFileError(m_ctx, more.GetError());
            return true;
        }
        if (!*more || g_bStopRun || !ProcessItem(folder, dest, item)) {
            return true;
        }
    }
}

// False to leave the listing.
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
    if (opened && !Deletes() && m_rules.Avoids(**opened)) {
        return true;
    }
    const std::string path = Subfolder(source.path, name);
    if (Deletes() || !m_rules.Has(DCF_PRESERVE_TREE)) {
        return Process(path, opened, dest);
    }
    TargetFolder subfolder(dest, name);
    EnsureFolder(m_ctx, path, subfolder, dest.Path() + name, opened ? opened->get() : nullptr);
    return Process(path, opened, subfolder);
}

bool ProcessWalk::ProcessFile(const SourceFolder& source, TargetFolder& dest, QueuedItem& item)
{
    m_path.assign(source.path).append(item.data.name);
    ShowCurrentFile(m_ctx, m_path, false, true);
    ShowFileSize(m_ctx, item.data.size, false, true);
    if (!Deletes()) {
        m_destPath.assign(dest.Path()).append(item.data.name);
        ShowDestFile(m_ctx, m_destPath, false, true);
    }

    if (!ActOnFile(source, dest, item) || g_bStopRun) {
        return false;
    }
    TakeOffUnit(m_ctx);
    ShowCurrentFile(m_ctx, m_path, true, false);
    if (!Deletes()) {
        ShowDestFile(m_ctx, m_destPath, true, false);
    }
    ShowFileSize(m_ctx, item.data.size, true, false);
    return true;
}

// False if a stop was found before anything was done.
bool ProcessWalk::ActOnFile(const SourceFolder& source, TargetFolder& dest, QueuedItem& item)
{
    Status known = item.details;
    if (known && !m_rules.Has(DCF_NO_ATTRS)) {
        known = m_ctx.m_pFiles->ReadAttributes(source.handle, item.data);
    }
    if (!known) {
        // It vanished after it was listed, or it cannot be examined.
        ShowAction(m_ctx, Deletes() ? "Delete File." : "Copying File.");
        ReportFileError(m_ctx, known.GetError());
        return true;
    }
    if (!MatchAttributes(item.data.attributes, m_rules.dwFlags, m_rules.nMask)) {
        ShowAction(m_ctx, "Didn't process file because file attributes didn't match.");
        return true;
    }
    if (g_bStopRun) {
        return false;
    }
    if (Deletes()) {
        DeleteOneFile(m_ctx, source, item.data.name);
    } else {
        TransferFile(m_ctx, source, dest, item.data, item.source.get(), m_rules.dwFlags);
    }
    item.source.reset();
    return true;
}

}  // namespace

bool CountFolder(CRunContext& ctx, const std::string& folder, const WalkRules& rules)
{
    if (rules.Has(DCF_SCRIPT_WSH | DCF_SCRIPT_DOS)) {
        if (CountGivenUp(ctx)) {
            return false;
        }
        AddUnit(ctx);
        return true;
    }
    const auto opened = ctx.m_pFiles->OpenFolder(folder);
    return !opened || CountListing(ctx, **opened, rules);
}

bool ProcessFolder(CRunContext& ctx, const std::string& source, TargetFolder& dest,
                   const WalkRules& rules, ReadAheadPolicy& readAhead)
{
    return ProcessWalk(ctx, rules, readAhead)
        .Process(source, ctx.m_pFiles->OpenFolder(source), dest);
}

}  // namespace quorbit
