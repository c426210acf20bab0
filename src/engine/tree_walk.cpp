// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/tree_walk.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <utility>

#include "engine/failure_policy.h"
#include "engine/file_operations.h"
#include "engine/file_transfer.h"
#include "engine/folder_items.h"
#include "engine/run_flags.h"
#include "engine/run_report.h"
#include "engine/source_queue.h"
#include "engine/step_queue.h"

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

// A source folder with its destination, for the walk and for the steps that wait.
struct WalkFolder {
    // openFolders: counts this one while it exists.
    WalkFolder(std::string path, std::unique_ptr<Folder> opened, TargetFolder& to,
               std::atomic<std::size_t>& openFolders)
        : handle(std::move(opened)),
          source{std::move(path), *handle},
          target(&to),
          count(openFolders)
    {
        ++count;
    }
    ~WalkFolder() { --count; }
    WalkFolder(const WalkFolder&) = delete;
    WalkFolder& operator=(const WalkFolder&) = delete;

    std::unique_ptr<Folder> handle;
    SourceFolder source;
    std::shared_ptr<WalkFolder> parent;       // contains the parent of the target
    std::unique_ptr<TargetFolder> ownTarget;  // null if the target is that of the step
    TargetFolder* target;
    std::atomic<std::size_t>& count;
};

using WalkFolderPtr = std::shared_ptr<WalkFolder>;
using PendingFilePtr = std::shared_ptr<PendingFile>;

// Walks a source folder and its subfolders. Looks up what it finds, and leaves it to the queue when
// to act on it.
class ProcessWalk {
public:
    ProcessWalk(CRunContext& ctx, const WalkRules& rules, StepTarget& target, WalkMemory& memory)
        : m_ctx(ctx),
          m_rules(rules),
          m_target(target),
          m_memory(memory),
          m_staging(*ctx.m_pFiles),
          m_queue(ctx, memory.lanes)
    {
    }

    // Returns false if a stop was requested before it started.
    bool Process(const std::string& source);

private:
    void Walk(const WalkFolderPtr& folder);
    void WalkSubfolder(const WalkFolderPtr& folder, const std::string& name);
    void WalkInto(const WalkFolderPtr& folder, const std::string& path,
                  std::unique_ptr<Folder> opened, const std::string& name);
    void AddFile(const WalkFolderPtr& folder, const PendingFilePtr& file, SourceQueue& queue);
    [[nodiscard]] AheadWork WorkAtOnce(const PendingPlace& place, PendingFile& file,
                                       SourceQueue& queue);
    [[nodiscard]] AheadWork WorkOnLanes(const WalkFolderPtr& folder, const PendingPlace& place,
                                        PendingFile& file);

    // The steps.
    void ReportUnlisted(const std::string& path, const Error& error);
    void ProcessFile(const WalkFolder& folder, PendingFile& file);
    bool ActOnFile(const WalkFolder& folder, PendingFile& file);

    CRunContext& m_ctx;
    const WalkRules& m_rules;
    StepTarget& m_target;
    WalkMemory& m_memory;
    std::string m_path;      // of the current file; a member to reuse its memory
    std::string m_destPath;  // its destination
    StagingFolders m_staging;
    StepQueue m_queue;  // last: its steps refer to the other members
};

bool ProcessWalk::Process(const std::string& source)
{
    auto opened = m_ctx.m_pFiles->OpenFolder(source);
    if (g_bStopRun) {
        return false;
    }
    if (!opened) {
        ReportUnlisted(source, opened.GetError());
        return true;
    }
    const auto folder = std::make_shared<WalkFolder>(source, std::move(*opened), m_target.Folder(),
                                                     m_queue.OpenFolders());
    Walk(folder);
    m_queue.Finish();
    m_staging.Remove();
    if (m_target.MirrorsSource() && m_rules.Has(DCF_PRESERVE_TREE)) {
        KeepFolderTime(m_ctx, folder->source, *folder->target);
    }
    return true;
}

void ProcessWalk::ReportUnlisted(const std::string& path, const Error& error)
{
    ReportInvalidSource(m_ctx, path, error);
}

void ProcessWalk::Walk(const WalkFolderPtr& folder)
{
    auto items = FolderItems::List(*m_ctx.m_pFiles, folder->source.handle);
    if (!items) {
        m_queue.Add([this, folder, error = items.GetError()] {
            if (!folder->target->IsGivenUp()) {
                ReportUnlisted(folder->source.path, error);
            }
        });
        return;
    }
    FlushLogIfDue(m_ctx);
    if (!m_rules.Deletes()) {
        folder->target->OpenIfThere();
    }
    SourceQueue queue(*m_ctx.m_pFiles, folder->source.handle, *items, m_rules, m_memory.readAhead);
    while (!g_bStopRun && !folder->target->IsGivenUp()) {
        auto file = std::make_shared<PendingFile>();
        const auto more = queue.Next(*file);
        if (!more) {
            // Report it: an incomplete listing must not look like the end of the folder.
            m_queue.Add([this, folder, error = more.GetError()] {
                ReportFileError(m_ctx, {RunOperation::ListFolder, folder->source.path, {}}, error);
            });
            return;
        }
        if (!*more || g_bStopRun) {
            return;
        }
        if (file->data.kind == ItemKind::Folder) {
            WalkSubfolder(folder, file->data.name);
        } else {
            AddFile(folder, file, queue);
        }
    }
}

void ProcessWalk::WalkSubfolder(const WalkFolderPtr& folder, const std::string& name)
{
    auto opened = m_ctx.m_pFiles->OpenSubfolder(folder->source.handle, name);
    if (opened && m_target.IsAt((*opened)->Identity())) {
        return;
    }
    const std::string path = SubfolderPath(folder->source.path, name);
    if (opened) {
        WalkInto(folder, path, std::move(*opened), name);
        return;
    }
    m_queue.Add([this, folder, path, name, error = opened.GetError()] {
        // The folder itself belongs to the destination, although its items cannot be copied.
        TargetFolder subfolder(*folder->target, name);
        const bool makes = !m_rules.Deletes() && m_rules.Has(DCF_PRESERVE_TREE);
        if (!folder->target->IsGivenUp() &&
            (!makes ||
             EnsureFolder(m_ctx, path, subfolder, folder->target->Path() + name, nullptr))) {
            ReportUnlisted(path, error);
        }
    });
}

void ProcessWalk::WalkInto(const WalkFolderPtr& folder, const std::string& path,
                           std::unique_ptr<Folder> opened, const std::string& name)
{
    auto subfolder = std::make_shared<WalkFolder>(path, std::move(opened), *folder->target,
                                                  m_queue.OpenFolders());
    subfolder->parent = folder;
    if (m_rules.Deletes() || !m_rules.Has(DCF_PRESERVE_TREE)) {
        return Walk(subfolder);
    }
    subfolder->ownTarget = std::make_unique<TargetFolder>(*folder->target, name);
    subfolder->target = subfolder->ownTarget.get();
    subfolder->target->OpenIfThere();
    m_queue.Add([this, subfolder, name] {
        TargetFolder& parent = *subfolder->parent->target;
        TargetFolder& target = *subfolder->target;
        if (!EnsureFolder(m_ctx, subfolder->source.path, target, parent.Path() + name,
                          &subfolder->source.handle)) {
            return;  // reported; nothing in it can be copied
        }
        if (!ClaimFolder(m_ctx, subfolder->source.path, parent, target, name)) {
            target.GiveUp();
        }
    });
    Walk(subfolder);
    m_queue.Add(
        [this, subfolder] { KeepFolderTime(m_ctx, subfolder->source, *subfolder->target); });
}

void ProcessWalk::AddFile(const WalkFolderPtr& folder, const PendingFilePtr& file,
                          SourceQueue& queue)
{
    auto step = [this, folder, file] {
        if (!folder->target->IsGivenUp()) {
            ProcessFile(*folder, *file);
        }
    };
    if (m_rules.Deletes()) {
        queue.Complete(*file);
        return m_queue.Add(std::move(step));
    }
    const TargetFolder& target = *folder->target;
    // Without lanes or a group to wait for, a copy is made in its turn, as it costs the same.
    const bool stages = m_ctx.m_bSyncAtEnd || m_memory.lanes.AreUsed();
    const PendingPlace place{
        folder->source.handle, target.Shared(), stages ? target.Staging() : nullptr,
        target.Top(),          m_staging,       target.IsNew(),
        m_ctx.m_bSyncAtEnd};
    m_queue.Add(folder.get(), file,
                m_memory.lanes.AreUsed() ? WorkOnLanes(folder, place, *file)
                                         : WorkAtOnce(place, *file, queue),
                std::move(step));
    if (stages && !place.staging) {
        m_queue.Finish();  // creates the destination, where the next copies can be made ready
    }
}

AheadWork ProcessWalk::WorkAtOnce(const PendingPlace& place, PendingFile& file, SourceQueue& queue)
{
    FileSystem& files = *m_ctx.m_pFiles;
    return {[&files, &rules = m_rules, &queue, place, &file] {
                queue.Complete(file);
                LookAhead(files, rules, place, file);
            },
            [&files, place, &file] { CopyAhead(files, place, file); }};
}

// The folder must not be closed while a lane uses it.
AheadWork ProcessWalk::WorkOnLanes(const WalkFolderPtr& folder, const PendingPlace& place,
                                   PendingFile& file)
{
    FileSystem& files = *m_ctx.m_pFiles;
    auto look = [&files, &rules = m_rules, folder, place, &file] {
        ReadFileDetails(files, rules, place.source, file, ReadAhead::No);
        LookAhead(files, rules, place, file);
    };
    auto copy = [&files, folder, place, &file] { CopyAhead(files, place, file); };
    if (!m_rules.CopiesAll()) {
        return {look, copy};
    }
    // Every file is opened, so look when there is room for another open file.
    file.isToCopy = true;
    return {nullptr, [look, copy, &file] {
                look();
                if (file.isToCopy) {
                    copy();
                }
            }};
}

void ProcessWalk::ProcessFile(const WalkFolder& folder, PendingFile& file)
{
    m_path.assign(folder.source.path).append(file.data.name);
    ShowCurrentFile(m_ctx, m_path, false, true);
    ShowFileSize(m_ctx, file.data.size, false, true);
    if (!m_rules.Deletes()) {
        m_destPath.assign(folder.target->Path()).append(file.data.name);
    }
    ShowDestFile(m_ctx, m_destPath, false, true);  // empty while deleting

    if (!ActOnFile(folder, file) || g_bStopRun || folder.target->IsGivenUp()) {
        return;
    }
    TakeOffUnit(m_ctx);
    ShowCurrentFile(m_ctx, m_path, true, false);
    if (!m_rules.Deletes()) {
        ShowDestFile(m_ctx, m_destPath, true, false);
    }
    ShowFileSize(m_ctx, file.data.size, true, false);
}

// Returns false if a stop was requested before the file was processed.
bool ProcessWalk::ActOnFile(const WalkFolder& folder, PendingFile& file)
{
    ReadFilterAttributes(*m_ctx.m_pFiles, m_rules, folder.source.handle, file);
    if (!file.details) {
        // The file was removed after it was listed, or its details cannot be read.
        ShowAction(m_ctx, m_rules.Deletes() ? "Delete File." : "Copying File.");
        ReportFileError(m_ctx,
                        {m_rules.Deletes() ? RunOperation::DeleteFile : RunOperation::Copy, m_path,
                         m_rules.Deletes() ? std::string() : m_destPath},
                        file.details.GetError());
        return true;
    }
    if (!m_rules.PassesFilter(file.data.attributes)) {
        ShowAction(m_ctx, "Didn't process file because file attributes didn't match.");
        return true;
    }
    if (g_bStopRun) {
        return false;
    }
    if (m_rules.Deletes()) {
        DeleteOneFile(m_ctx, folder.source, file.data.name);
    } else {
        TransferFile(m_ctx, folder.source, *folder.target, file,
                     {m_rules.dwFlags, m_memory.hardLinks, m_staging});
    }
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
    return ProcessWalk(ctx, rules, target, memory).Process(source);
}

}  // namespace quorbit
