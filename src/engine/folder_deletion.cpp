// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/folder_deletion.h"

#include <memory>
#include <utility>

#include "engine/failure_policy.h"
#include "engine/folder_items.h"
#include "engine/run_report.h"
#include "platform/path_lookup.h"
#include "platform/path_text.h"

namespace quorbit {
namespace {

// Reports a failure on an item of the tree that the log does not list.
void ReportItemError(CRunContext& ctx, RunOperation operation, const std::string& path,
                     const Error& error)
{
    ShowCurrentFile(ctx, path, false, true);
    ReportFileError(ctx, {operation, path, {}}, error);
}

void DeleteListedFile(CRunContext& ctx, const Folder& folder, const std::string& path,
                      FindData& item, const WalkRules& rules)
{
    if (!rules.Has(DCF_NO_ATTRS)) {
        const Status known = ctx.m_pFiles->ReadAttributes(folder, item);
        if (!known) {
            return ReportItemError(ctx, RunOperation::DeleteFile, path + item.name,
                                   known.GetError());
        }
    }
    if (!rules.PassesFilter(item.attributes) ||
        !MatchFileType(rules.list, item.name, rules.nKind, rules.dwFlags)) {
        return;
    }
    const Status deleted = ctx.m_pFiles->DeleteFile(folder, item.name);
    if (!deleted) {
        ReportItemError(ctx, RunOperation::DeleteFile, path + item.name, deleted.GetError());
    }
}

// Items cannot be deleted from a read-only folder. Errors are ignored, because the deletions then
// fail and are reported.
void ClearReadOnly(FileSystem& files, const Folder& folder, FindData& item)
{
    if (files.ReadAttributes(folder, item)) {
        (void)files.SetAttributes(folder, item.name, item.attributes & ~kAttributeReadOnly);
    }
}

void ShowFolderDeletion(CRunContext& ctx, const std::string& path)
{
    ShowAction(ctx, "Delete Folder.");
    ShowCurrentFile(ctx, path, true, true);
    ShowDestFile(ctx, path, true, true);
}

void DeleteListedFolder(CRunContext& ctx, const Folder& folder, const std::string& path,
                        FindData& item, const WalkRules& rules)
{
    const std::string subfolder = SubfolderPath(path, item.name);
    auto opened = ctx.m_pFiles->OpenSubfolder(folder, item.name);
    if (opened && ctx.m_pFiles->IsMountPoint(**opened)) {
        // What is mounted here is not part of the folder that the user wants to delete.
        ShowFolderDeletion(ctx, subfolder);
        return ReportFileError(ctx, {RunOperation::DeleteFolder, subfolder, {}},
                               Error(ErrorKind::Busy,
                                     "A file system is mounted here; it is not "
                                     "deleted with the folder around it"));
    }
    ClearReadOnly(*ctx.m_pFiles, folder, item);
    if (!opened) {
        opened = ctx.m_pFiles->OpenSubfolder(folder, item.name);  // it may be readable now
    }
    if (opened && !ctx.m_pFiles->IsProtected(**opened)) {
        DeleteFolderTree(ctx, **opened, subfolder, rules);
    }
    RemoveFolder(ctx, folder, item.name, subfolder);
}

// The parent of the folder to delete, and the name of the folder in it.
struct Place {
    std::unique_ptr<Folder> parent;
    std::string name;
};

Result<Place> FindPlace(CRunContext& ctx, const std::string& path)
{
    std::string name = SplitLast(path).second;
    // A folder without a name in its parent cannot be removed from it.
    if (name.empty() || name == "." || name == "..") {
        return Error(ErrorKind::Invalid);
    }
    auto opened = ctx.m_pFiles->OpenFolder(ParentFolder(path));
    if (!opened) {
        return opened.GetError();
    }
    if (IsWindowsPath(path)) {
        name = SplitLast(FindNative(path, ctx.m_drives)).second;  // the case may differ
    }
    return Place{std::move(*opened), std::move(name)};
}

// Counts the folder as one unit, even if parts of it could not be deleted.
void TallyDeletion(CRunContext& ctx)
{
    TakeOffUnit(ctx);
    Raise(ctx, &CRunContext::m_nDeleteCount, RunCounter::Delete);
}

Error ProtectedError()
{
    return {ErrorKind::Protected, "This folder is protected from being deleted as a whole"};
}

// Reports a folder that cannot be found or must not be deleted.
void RefuseDeletion(CRunContext& ctx, const std::string& path, const Error& error)
{
    ShowFolderDeletion(ctx, path);
    ReportFileError(ctx, {RunOperation::DeleteFolder, path, {}}, error);
    TakeOffUnit(ctx);
}

// Deletes the content of a volume. Its root folder cannot be removed, so that is always reported
// (rmdir(2) of a mount point fails with EBUSY).
void DeleteWholeVolume(CRunContext& ctx, const std::string& path, const WalkRules& rules)
{
    const auto folder = ctx.m_pFiles->OpenFolder(path);
    if (!folder) {
        return RefuseDeletion(ctx, path, folder.GetError());
    }
    if (ctx.m_pFiles->IsProtected(**folder)) {
        return RefuseDeletion(ctx, path, ProtectedError());
    }
    DeleteFolderTree(ctx, **folder, path, rules);
    ShowFolderDeletion(ctx, path);
    ReportFileError(ctx, {RunOperation::DeleteFolder, path, {}}, Error(ErrorKind::Busy));
    TallyDeletion(ctx);
}

}  // namespace

void DeleteFolderTree(CRunContext& ctx, const Folder& folder, const std::string& path,
                      const WalkRules& rules)
{
    auto items = FolderItems::List(*ctx.m_pFiles, folder);
    if (!items) {
        return;  // RemoveFolder will fail and be reported
    }
    FindData item;
    for (;;) {
        const auto more = items->Next(item);
        if (!more) {
            return ReportItemError(ctx, RunOperation::ListFolder, path, more.GetError());
        }
        if (!*more) {
            return;
        }
        FlushLogIfDue(ctx);
        if (item.kind == ItemKind::Folder) {
            DeleteListedFolder(ctx, folder, path, item, rules);
        } else {
            DeleteListedFile(ctx, folder, path, item, rules);
        }
    }
}

void RemoveFolder(CRunContext& ctx, const Folder& parent, const std::string& name,
                  const std::string& path)
{
    ShowFolderDeletion(ctx, path);
    const Status removed = ctx.m_pFiles->RemoveFolder(parent, name);
    if (!removed) {
        ReportFileError(ctx, {RunOperation::DeleteFolder, path, {}}, removed.GetError());
    }
}

void DeleteWholeFolder(CRunContext& ctx, const std::string& path, const WalkRules& rules)
{
    FileSystem& files = *ctx.m_pFiles;
    if (IsRoot(path)) {
        return DeleteWholeVolume(ctx, path, rules);
    }
    const auto place = FindPlace(ctx, path);
    if (!place) {
        return RefuseDeletion(ctx, path, place.GetError());
    }
    FindData top;
    top.name = place->name;
    top.kind = ItemKind::Folder;
    auto folder = files.OpenSubfolder(*place->parent, top.name);
    if (!folder && (folder.GetError().Kind() == ErrorKind::Missing ||
                    folder.GetError().Kind() == ErrorKind::NotAFolder)) {
        return RefuseDeletion(ctx, path, folder.GetError());
    }
    if (folder && files.IsProtected(**folder)) {
        return RefuseDeletion(ctx, path, ProtectedError());
    }
    if (folder) {
        ClearReadOnly(files, *place->parent, top);
        DeleteFolderTree(ctx, **folder, path, rules);
    }
    RemoveFolder(ctx, *place->parent, top.name, path);
    TallyDeletion(ctx);
}

}  // namespace quorbit
