// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/file_operations.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "batch/dir_copy.h"
#include "engine/backup_rotation.h"
#include "engine/failure_policy.h"
#include "engine/run_flags.h"
#include "engine/run_report.h"
#include "engine/transfer_decision.h"
#include "platform/path_text.h"

namespace quorbit {
namespace {

// From this size, in bytes, a copy may take long: write the log lines before it starts.
constexpr std::uint64_t kLongCopy = 1024 * 1024;

// Followed by an attribute and the reason.
constexpr const char* kNotKept = "Copied without an attribute: ";

// Shows the progress of a copy.
class ShownProgress : public CopyProgress {
public:
    explicit ShownProgress(CRunContext& ctx) : m_ctx(ctx) {}
    void OnBytesCopied(std::uint64_t bytes) override { ShowBytes(m_ctx, bytes); }

private:
    CRunContext& m_ctx;
};

// The arguments of the transfer of one file. Nothing is owned; opened may be null.
struct Transfer {
    CRunContext& ctx;
    const SourceFolder& source;
    TargetFolder& dest;
    const FindData& item;
    SourceFile* opened;
    const TransferRules& rules;
    CopyOptions options;
};

ProblemSubject SubjectOf(const Transfer& transfer, RunOperation operation)
{
    const std::string& name = transfer.item.name;
    return {operation, transfer.source.path + name, transfer.dest.Path() + name};
}

void ReportTransferError(const Transfer& transfer, RunOperation operation, const Error& error)
{
    ReportFileError(transfer.ctx, SubjectOf(transfer, operation), error);
}

void ReportTransferWarning(const Transfer& transfer, RunOperation operation, std::string text)
{
    ReportWarning(transfer.ctx, SubjectOf(transfer, operation), ErrorKind::Other, std::move(text));
}

// Returns the file at the destination, or nullopt if it is missing. Other failures are errors.
Result<std::optional<FindData>> ProbeDestination(const Transfer& transfer)
{
    const Folder* folder = transfer.dest.Handle();
    if (!folder) {
        return std::optional<FindData>();  // the copy will fail because there is no folder
    }
    auto found = transfer.ctx.m_pFiles->Probe(*folder, transfer.item.name);
    if (found) {
        return std::optional<FindData>(std::move(*found));
    }
    if (found.GetError().Kind() == ErrorKind::Missing) {
        return std::optional<FindData>();
    }
    return found.GetError();
}

// Probes the destination, and creates its folder if necessary. If the file exists, so does the
// folder, which saves the check. Otherwise probes again if EnsureFolder opened a different folder.
// If there is no folder, it is given up and its error reported.
Result<std::optional<FindData>> FindDestination(const Transfer& transfer)
{
    TargetFolder& dest = transfer.dest;
    std::optional<FolderIdentity> asked;
    auto existing = ProbeDestination(transfer);
    if (dest.Handle()) {
        asked = dest.Handle()->Identity();
        if (existing && *existing) {
            return existing;
        }
    }
    if (!EnsureFolder(transfer.ctx, transfer.source.path, dest, dest.Path(),
                      &transfer.source.handle)) {
        return dest.WhyNotOpen();
    }
    const bool same = asked && dest.Handle() && dest.Handle()->Identity() == *asked;
    return same ? existing : ProbeDestination(transfer);
}

// Copies the file. A further name of a file that was copied before becomes a hard link to the copy.
Status CopyOrLink(const Transfer& transfer, SourceFile& opened, CopyOptions options)
{
    FileSystem& files = *transfer.ctx.m_pFiles;
    const Folder& folder = *transfer.dest.Handle();
    const std::string& name = transfer.item.name;
    const FindData& details = opened.Details();
    if (details.links < 2 || details.kind != ItemKind::File) {
        return files.CopyFile(opened, folder, name, options);
    }
    HardLinks& hardLinks = transfer.rules.hardLinks;
    const HardLinks::Copy copy = hardLinks.Find(files, details);
    if (copy.folder) {
        options.linkTo = &copy.file;
    }
    Status copied = files.CopyFile(opened, folder, name, options);
    if (copied && !hardLinks.Add(files, details, folder, transfer.dest.Path(), name)) {
        ReportTransferWarning(transfer, RunOperation::Copy,
                              "There are too many files with several names. Hard links among the "
                              "further ones become separate files");
    }
    return copied;
}

// Copies the file and returns the error without reporting it.
Status TryCopy(const Transfer& transfer)
{
    CRunContext& ctx = transfer.ctx;
    if (transfer.item.size >= kLongCopy) {
        FlushLog(ctx);
    }
    SourceFile* opened = transfer.opened;
    std::unique_ptr<SourceFile> own;
    if (!opened) {
        auto result =
            ctx.m_pFiles->OpenSource(transfer.source.handle, transfer.item, ReadAhead::No);
        if (!result) {
            return result.GetError();
        }
        own = std::move(*result);
        opened = own.get();
    }
    if (!transfer.dest.Handle()) {
        return Error(ErrorKind::Missing);
    }
    ShownProgress progress(ctx);
    CopyOptions options = transfer.options;
    options.progress = &progress;
    const Status copied = CopyOrLink(transfer, *opened, options);
    const std::vector<std::string> notKept = ctx.m_pFiles->TakeNotKept();
    if (copied) {
        transfer.dest.MarkChanged();
        for (const std::string& attribute : notKept) {
            ReportTransferWarning(transfer, RunOperation::Copy, kNotKept + attribute);
        }
    }
    return copied;
}

// Reports a failed copy. An item that the destination cannot hold is only a warning: no later run
// could copy it, and links and pipes are common in home folders.
void ReportCopyError(const Transfer& transfer, RunOperation operation, const Error& error)
{
    if (error.Kind() == ErrorKind::ItemNotSupported) {
        ReportWarning(transfer.ctx, SubjectOf(transfer, operation), error.Kind(),
                      "Not copied: " + error.Text());
    } else {
        ReportTransferError(transfer, operation, error);
    }
}

// Copies the file and reports a failure. Returns true on success.
bool Copy(const Transfer& transfer, RunOperation operation)
{
    const Status copied = TryCopy(transfer);
    if (!copied) {
        ReportCopyError(transfer, operation, copied.GetError());
    }
    return copied.Ok();
}

void CopyPlainly(Transfer& transfer, bool destinationExists)
{
    ShowAction(transfer.ctx, "Copying File.");
    transfer.options.expectMissing = !destinationExists;
    if (Copy(transfer, RunOperation::Copy)) {
        Raise(transfer.ctx, &CRunContext::m_nCopyCount, RunCounter::Copy);
    }
}

// Copies into a folder that this run created, without probing for the file first. The name is free
// unless another process took it, which CopyFile detects. Returns false, without reporting an
// error, if the folder is not new, if the source is not open, or if the folder was removed. The
// caller then takes the regular path, which recreates the folder.
bool CopyIntoNewFolder(Transfer transfer)
{
    CRunContext& ctx = transfer.ctx;
    if (!transfer.dest.IsNew() || !transfer.opened) {
        return false;
    }
    ShowAction(ctx, "Copying File.");
    transfer.options.expectMissing = true;
    const Status copied = TryCopy(transfer);
    if (copied) {
        Raise(ctx, &CRunContext::m_nCopyCount, RunCounter::Copy);
    } else if (ctx.m_pFiles->StillThere(*transfer.dest.Handle())) {
        ReportCopyError(transfer, RunOperation::Copy, copied.GetError());
    } else {
        return false;
    }
    return true;
}

void CopyNewer(const Transfer& transfer)
{
    ShowAction(transfer.ctx, "Sync File.");
    if (Copy(transfer, RunOperation::Sync)) {
        Raise(transfer.ctx, &CRunContext::m_nSyncCount, RunCounter::Sync);
    }
}

// Restores the state before the rotation, so that the next run finds the old version under its
// plain name.
void UndoRotation(const Transfer& transfer, const FindData& old, const Rotation& rotation)
{
    const Status undone =
        TakeBackNumber(*transfer.ctx.m_pFiles, *transfer.dest.Handle(), old, rotation);
    if (!undone) {
        ReportTransferWarning(transfer, RunOperation::Backup,
                              "The old version is still named " + rotation.numbered + ": " +
                                  undone.GetError().Text());
    }
}

// old: the file that the copy replaces.
void CopyWithBackup(Transfer& transfer, const FindData& old)
{
    CRunContext& ctx = transfer.ctx;
    const auto rotation =
        RotateBackup(*ctx.m_pFiles, *transfer.dest.Handle(), old.name, transfer.source.handle);
    const bool noneFree = rotation && rotation->outcome == Rotation::Outcome::NoneFree;
    ShowAction(ctx, noneFree ? "Didn't backup file. Backup max reached." : "Incrementing backup.");
    if (!rotation) {
        return ReportTransferError(transfer, RunOperation::Backup, rotation.GetError());
    }
    // A later source file may have the name of the version.
    if (transfer.rules.IsFlat() || transfer.dest.Placed().IgnoresCase()) {
        FindData version = old;
        version.name = rotation->numbered;
        (void)transfer.dest.Placed().Add(version);
    }
    // The old version is safe under its number, so its read-only attribute no longer protects the
    // plain name.
    if (rotation->outcome == Rotation::Outcome::Linked) {
        transfer.options.replaceReadOnly = true;
    }
    if (!Copy(transfer, RunOperation::Backup)) {
        return UndoRotation(transfer, old, *rotation);
    }
    Raise(ctx, &CRunContext::m_nBackupCount, RunCounter::Backup);
    if (noneFree) {
        ReportTransferWarning(transfer, RunOperation::Backup,
                              "The old version was replaced: all its version numbers are in use");
    }
}

// Warns of a file that is skipped because its time says so, although it differs. It may be damaged
// or belong to another file, and no later run would replace it.
void WarnIfDifferent(const Transfer& transfer, RunOperation operation, const FindData& existing)
{
    if (existing.kind != transfer.item.kind) {
        ReportTransferWarning(transfer, operation,
                              "Not copied: the destination is not older, but no such item");
    } else if (existing.kind == ItemKind::File && existing.size != transfer.item.size) {
        ReportTransferWarning(transfer, operation,
                              "Not copied: the destination is not older, but has another size");
    }
}

// Reports a destination that cannot be checked or replaced.
void RefuseTransfer(const Transfer& transfer, std::uint32_t dwFlags, const Error& error)
{
    if (dwFlags & DCF_INCREMENTAL) {
        ShowAction(transfer.ctx, "Incrementing backup.");
        ReportTransferError(transfer, RunOperation::Backup, error);
    } else if (dwFlags & DCF_SYNC) {
        ShowAction(transfer.ctx, "Sync File.");
        ReportTransferError(transfer, RunOperation::Sync, error);
    } else {
        ShowAction(transfer.ctx, "Copying File.");
        ReportTransferError(transfer, RunOperation::Copy, error);
    }
}

Error SameNameError()
{
    return {ErrorKind::AlreadyExists,
            "Another item of this entry has the same name at the destination, which ignores case"};
}

// Acts on the state of the destination; existing: nullopt if the file is missing.
void TransferBeside(Transfer& transfer, const std::optional<FindData>& existing,
                    std::uint32_t dwFlags)
{
    CRunContext& ctx = transfer.ctx;
    std::optional<std::int64_t> tDest;
    if (existing) {
        tDest = existing->modified;
    }
    switch (DecideTransfer(dwFlags, transfer.item.modified, tDest)) {
        case TransferAction::Copy:
            // A file that appears now may be newer, or needs a number. The next run decides.
            transfer.options.mustBeMissing =
                !existing && (dwFlags & (DCF_SYNC | DCF_INCREMENTAL)) != 0;
            return CopyPlainly(transfer, existing.has_value());
        case TransferAction::Sync:
            return CopyNewer(transfer);
        case TransferAction::LeaveSync:
            ShowAction(ctx, "Didn't Sync File.");
            WarnIfDifferent(transfer, RunOperation::Sync, *existing);
            return Raise(ctx, &CRunContext::m_nDidntSyncCount, RunCounter::DidntSync);
        case TransferAction::Backup:
            return CopyWithBackup(transfer, *existing);
        case TransferAction::LeaveBackup:
            ShowAction(ctx, "Didn't backup file. No change detected.");
            return WarnIfDifferent(transfer, RunOperation::Backup, *existing);
    }
}

// Returns true if the item at the destination belongs to another file of this entry. In a flat
// entry that is expected, so it is a warning and the transfer goes on.
bool IsTakenByOther(const Transfer& transfer, FindData existing)
{
    existing.name = transfer.item.name;
    if (!transfer.dest.Placed().Has(existing)) {
        return false;
    }
    if (transfer.rules.IsFlat()) {
        ReportTransferWarning(transfer, RunOperation::Copy,
                              "Another file of this entry has the same name at the destination, "
                              "where there is place for one only");
    }
    return !transfer.rules.IsFlat();
}

// Remembers whose item the destination is now, if another source file can have the same name there.
void RememberPlaced(const Transfer& transfer)
{
    TargetFolder& dest = transfer.dest;
    if (!dest.Handle()) {
        return;
    }
    FileSystem& files = *transfer.ctx.m_pFiles;
    dest.Placed().LearnCase(files, *dest.Handle(), transfer.item.name);
    if (!transfer.rules.IsFlat() && !dest.Placed().IgnoresCase()) {
        return;
    }
    const auto placed = files.Probe(*dest.Handle(), transfer.item.name);
    if (placed && !dest.Placed().Add(*placed)) {
        ReportTransferWarning(transfer, RunOperation::Copy,
                              "There are too many files in this folder. Further ones that have the "
                              "same name at the destination are not noticed");
    }
}

// Probes the destination and acts on what is there.
void TransferChecked(Transfer& transfer)
{
    const std::uint32_t dwFlags = transfer.rules.dwFlags;
    // A folder that could not be opened does not prove that the file is missing, so open or create
    // it first.
    const auto existing = FindDestination(transfer);
    if (g_bStopRun || transfer.dest.IsGivenUp()) {
        return;
    }
    if (!existing) {
        return RefuseTransfer(transfer, dwFlags, existing.GetError());
    }
    if (*existing && (*existing)->kind == ItemKind::Folder) {
        return RefuseTransfer(transfer, dwFlags, Error(ErrorKind::IsAFolder));
    }
    if (*existing && IsTakenByOther(transfer, **existing)) {
        return RefuseTransfer(transfer, dwFlags, SameNameError());
    }
    TransferBeside(transfer, *existing, dwFlags);
    RememberPlaced(transfer);
}

}  // namespace

void TransferFile(CRunContext& ctx, const SourceFolder& source, TargetFolder& dest,
                  const FindData& item, SourceFile* opened, const TransferRules& rules)
{
    Transfer transfer{ctx, source, dest, item, opened, rules, {}};
    transfer.options.replaceReadOnly = (rules.dwFlags & DCF_OVERWRITE_RO) != 0;
    const bool compares = (rules.dwFlags & (DCF_SYNC | DCF_INCREMENTAL)) != 0;
    const bool namesMayMeet = rules.IsFlat() || dest.Placed().IgnoresCase();
    if (!compares && !namesMayMeet && CopyIntoNewFolder(transfer)) {
        RememberPlaced(transfer);
    } else {
        TransferChecked(transfer);
    }
}

bool ClaimFolder(CRunContext& ctx, const std::string& source, TargetFolder& parent,
                 TargetFolder& dest, const std::string& name)
{
    if (!dest.Handle() || !parent.Handle()) {
        return true;
    }
    PlacedItems& placed = parent.Placed();
    placed.LearnCase(*ctx.m_pFiles, *parent.Handle(), name);
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
                      kNotKept + attribute);
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
