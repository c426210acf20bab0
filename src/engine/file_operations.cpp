// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/file_operations.h"

#include "engine/failure_policy.h"
#include "engine/run_flags.h"
#include "engine/run_report.h"

namespace quorbit {

std::string NotKeptText(const std::string& attribute)
{
    return "Copied without an attribute: " + attribute;
}

Error SameNameError()
{
    return {ErrorKind::AlreadyExists,
            "Another item of this entry has the same name at the destination, which ignores case"};
}

bool ClaimFolder(CRunContext& ctx, const std::string& source, TargetFolder& parent,
                 TargetFolder& dest, const std::string& name)
{
    if (!dest.Handle() || !parent.Handle()) {
        return true;
    }
    parent.LearnCase(name);
    PlacedItems& placed = parent.Placed();
    if (!placed.IgnoresCase()) {
        return true;
    }
    FindData item;
    item.name = name;
    item.kind = ItemKind::Folder;
    item.device = dest.Handle()->Identity().device;
    item.inode = dest.Handle()->Identity().inode;
    if (placed.HasUnderOtherName(item)) {
        ShowAction(ctx, "Create Folder.");
        ReportFileError(ctx, {RunOperation::CreateFolder, source, dest.Path()}, SameNameError());
        ShowCurrentFile(ctx, source, true, true);
        ShowDestFile(ctx, dest.Path(), true, true);
        return false;
    }
    (void)placed.Add(item);  // files report a full list
    return true;
}

void KeepFolderTime(CRunContext& ctx, const SourceFolder& source, TargetFolder& dest)
{
    if (g_bStopRun || !dest.IsChanged() || !dest.Handle()) {
        return;
    }
    const Status kept = ctx.m_pFiles->CopyFolderTime(source.handle, *dest.Handle());
    if (!kept) {
        ReportWarning(ctx, {RunOperation::CreateFolder, source.path, dest.Path()},
                      kept.GetError().Kind(),
                      "The time of the folder could not be kept: " + kept.GetError().Text());
    }
}

void DeleteOneFile(CRunContext& ctx, const SourceFolder& source, const std::string& name)
{
    ShowAction(ctx, "Delete File.");
    const Status deleted = ctx.m_pFiles->DeleteFile(source.handle, name);
    if (deleted) {
        Raise(ctx, &CRunContext::m_nDeleteCount, RunCounter::Delete);
    } else {
        ReportFileError(ctx, {RunOperation::DeleteFile, source.path + name, {}},
                        deleted.GetError());
    }
}

bool EnsureFolder(CRunContext& ctx, const std::string& source, TargetFolder& dest,
                  const std::string& asGiven, const Folder* like)
{
    if (dest.IsGivenUp()) {
        return false;
    }
    if (dest.Stands()) {
        return true;
    }
    Status created = dest.IsTop() ? Status(dest.WhyNotOpen()) : dest.Create(like);
    if (!created && !dest.IsTop()) {
        // Create the parents only after a failure: usually they exist.
        TargetFolder& parent = dest.Parent();
        std::string parentPath = parent.Path();
        if (!parent.IsTop()) {
            parentPath.pop_back();
        }
        if (!EnsureFolder(ctx, source, parent, parentPath, nullptr)) {
            dest.GiveUp();
            return false;
        }
        if (dest.Stands()) {
            return true;  // another process created it in the meantime
        }
        created = dest.Create(like);
        if (!created && created.GetError().Kind() == ErrorKind::AlreadyExists) {
            created = dest.WhyNotOpen();  // a file or a link has its name
        }
    }
    for (const std::string& attribute : ctx.m_pFiles->TakeNotKept()) {
        ReportWarning(ctx, {RunOperation::CreateFolder, source, asGiven}, ErrorKind::Other,
                      NotKeptText(attribute));
    }
    ShowAction(ctx, "Create Folder.");
    if (!created) {
        ShowCurrentFile(ctx, asGiven, false, true);
        ReportFileError(ctx, {RunOperation::CreateFolder, source, asGiven}, created.GetError());
        dest.GiveUp();
    }
    ShowCurrentFile(ctx, source, true, created.Ok());
    ShowDestFile(ctx, asGiven, true, true);
    return created.Ok();
}

}  // namespace quorbit
