// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/file_transfer.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "batch/dir_copy.h"
#include "engine/backup_rotation.h"
#include "engine/failure_policy.h"
#include "engine/run_flags.h"
#include "engine/run_report.h"
#include "engine/transfer_copy.h"
#include "engine/transfer_decision.h"
#include "platform/path_text.h"

namespace quorbit {
namespace {

// Another process may change the destination again and again.
constexpr int kDecisions = 4;

// Gives temporary names a folder when one is needed.
class NamesInStaging : public NameFolder {
public:
    NamesInStaging(StagingFolders& staging, const TargetFolder& dest)
        : m_staging(staging), m_dest(dest)
    {
    }
    const Folder* Get() override
    {
        const Folder* const folder = m_dest.Handle();
        return folder != nullptr ? m_staging.ForNames(m_dest.Top(), *folder) : nullptr;
    }

private:
    StagingFolders& m_staging;
    const TargetFolder& m_dest;
};

enum class Outcome {
    Done,   // or reported
    Stale,  // the destination is not what it was when this was decided; nothing was changed
};

// Returns the file at the destination, or nullopt if it is missing. Other failures are errors.
Result<std::optional<FindData>> ProbeDestination(const FileTransfer& transfer)
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

// Returns what was found ahead, once. Otherwise probes the destination, and creates its folder if
// necessary. If the file exists, so does the folder, which saves the check. Otherwise probes again
// if EnsureFolder opened a different folder. If there is no folder, it is given up and its error
// reported.
Result<std::optional<FindData>> FindDestination(FileTransfer& transfer)
{
    TargetFolder& dest = transfer.dest;
    if (auto look = std::exchange(transfer.file.look, {}); look && dest.Handle()) {
        return std::move(look->found);
    }
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

Outcome CopyPlainly(FileTransfer& transfer, bool destinationExists)
{
    transfer.options.expectMissing = !destinationExists;
    const Status copied = ShowAndCopy(transfer, "Copying File.");
    if (IsStale(transfer, copied)) {
        return Outcome::Stale;
    }
    if (copied) {
        Raise(transfer.ctx, &CRunContext::m_nCopyCount, RunCounter::Copy);
    } else {
        ReportCopyError(transfer, RunOperation::Copy, copied.GetError());
    }
    return Outcome::Done;
}

// Copies into a folder that this run created, without probing for the file first. The name is free
// unless another process took it, which CopyFile detects. Returns false, without reporting an
// error, if the folder is not new, if the source is not open, or if the folder was removed. The
// caller then takes the regular path, which recreates the folder.
bool CopyIntoNewFolder(FileTransfer& transfer)
{
    CRunContext& ctx = transfer.ctx;
    if (!transfer.dest.IsNew() || (!transfer.file.source && !transfer.file.copy)) {
        return false;
    }
    transfer.options.expectMissing = true;
    const Status copied = ShowAndCopy(transfer, "Copying File.");
    if (copied) {
        Raise(ctx, &CRunContext::m_nCopyCount, RunCounter::Copy);
    } else if (ctx.m_pFiles->StillThere(*transfer.dest.Handle())) {
        ReportCopyError(transfer, RunOperation::Copy, copied.GetError());
    } else {
        transfer.file.look.reset();
        return false;
    }
    return true;
}

Outcome CopyNewer(FileTransfer& transfer, const FindData& old)
{
    transfer.options.replaces = old;
    const Status copied = ShowAndCopy(transfer, "Sync File.");
    if (IsStale(transfer, copied)) {
        return Outcome::Stale;
    }
    if (copied) {
        Raise(transfer.ctx, &CRunContext::m_nSyncCount, RunCounter::Sync);
    } else {
        ReportCopyError(transfer, RunOperation::Sync, copied.GetError());
    }
    return Outcome::Done;
}

// Restores the state before the rotation, so that the next run finds the old version under its
// plain name.
void UndoRotation(const FileTransfer& transfer, const FindData& old, const Rotation& rotation)
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
Outcome CopyWithBackup(FileTransfer& transfer, const FindData& old)
{
    CRunContext& ctx = transfer.ctx;
    const auto rotation =
        RotateBackup(*ctx.m_pFiles, *transfer.dest.Handle(), old.name, transfer.source.handle);
    if (!rotation) {
        ShowAction(ctx, "Incrementing backup.");
        ReportTransferError(transfer, RunOperation::Backup, rotation.GetError());
        return Outcome::Done;
    }
    // A later source file may have the name of the version.
    if (transfer.rules.IsFlat() || transfer.dest.Placed().IgnoresCase()) {
        FindData version = old;
        version.name = rotation->numbered;
        (void)transfer.dest.Placed().Add(version);
    }
    if (rotation->outcome == Rotation::Outcome::Renamed) {
        transfer.options.mustBeMissing = true;
    } else {
        transfer.options.replaces = old;
        transfer.options.exchanges = true;
    }
    // The old version is safe under its number, so its read-only attribute no longer protects the
    // plain name.
    if (rotation->outcome == Rotation::Outcome::Linked) {
        transfer.options.replaceReadOnly = true;
    }
    const bool noneFree = rotation->outcome == Rotation::Outcome::NoneFree;
    const Status copied = ShowAndCopy(
        transfer, noneFree ? "Didn't backup file. Backup max reached." : "Incrementing backup.");
    if (!copied) {
        const bool stale = IsStale(transfer, copied);
        if (!stale) {
            ReportCopyError(transfer, RunOperation::Backup, copied.GetError());
        }
        UndoRotation(transfer, old, *rotation);
        return stale ? Outcome::Stale : Outcome::Done;
    }
    Raise(ctx, &CRunContext::m_nBackupCount, RunCounter::Backup);
    if (noneFree) {
        ReportTransferWarning(transfer, RunOperation::Backup,
                              "The old version was replaced: all its version numbers are in use");
    }
    return Outcome::Done;
}

// Warns of a file that is skipped because its time says so, although it differs. It may be damaged
// or belong to another file, and no later run would replace it.
void WarnIfDifferent(const FileTransfer& transfer, RunOperation operation, const FindData& existing)
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
void RefuseTransfer(const FileTransfer& transfer, std::uint32_t dwFlags, const Error& error)
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

// Acts on the state of the destination; existing: nullopt if the file is missing.
Outcome TransferBeside(FileTransfer& transfer, const std::optional<FindData>& existing)
{
    CRunContext& ctx = transfer.ctx;
    const std::uint32_t dwFlags = transfer.rules.dwFlags;
    std::optional<std::int64_t> tDest;
    if (existing) {
        tDest = existing->modified;
    }
    switch (DecideTransfer(dwFlags, transfer.item.modified, tDest)) {
        case TransferAction::Copy:
            // A file that appears now may be newer, or needs a number.
            transfer.options.mustBeMissing =
                !existing && (dwFlags & (DCF_SYNC | DCF_INCREMENTAL)) != 0;
            return CopyPlainly(transfer, existing.has_value());
        case TransferAction::Sync:
            return CopyNewer(transfer, *existing);
        case TransferAction::LeaveSync:
            ShowAction(ctx, "Didn't Sync File.");
            WarnIfDifferent(transfer, RunOperation::Sync, *existing);
            Raise(ctx, &CRunContext::m_nDidntSyncCount, RunCounter::DidntSync);
            break;
        case TransferAction::Backup:
            return CopyWithBackup(transfer, *existing);
        case TransferAction::LeaveBackup:
            ShowAction(ctx, "Didn't backup file. No change detected.");
            WarnIfDifferent(transfer, RunOperation::Backup, *existing);
            break;
    }
    return Outcome::Done;
}

// Returns true if the item at the destination belongs to another file of this entry. In a flat
// entry that is expected, so it is a warning and the transfer goes on.
bool IsTakenByOther(const FileTransfer& transfer, FindData existing)
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
void RememberPlaced(const FileTransfer& transfer)
{
    TargetFolder& dest = transfer.dest;
    if (!dest.Handle()) {
        return;
    }
    FileSystem& files = *transfer.ctx.m_pFiles;
    dest.LearnCase(transfer.item.name);
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
Outcome TransferChecked(FileTransfer& transfer)
{
    const std::uint32_t dwFlags = transfer.rules.dwFlags;
    // A folder that could not be opened does not prove that the file is missing, so open or create
    // it first.
    const auto existing = FindDestination(transfer);
    if (g_bStopRun || transfer.dest.IsGivenUp()) {
        return Outcome::Done;
    }
    Status refused;
    if (!existing) {
        refused = existing.GetError();
    } else if (*existing && (*existing)->kind == ItemKind::Folder) {
        refused = Error(ErrorKind::IsAFolder);
    } else if (*existing && IsTakenByOther(transfer, **existing)) {
        refused = SameNameError();
    }
    if (!refused) {
        RefuseTransfer(transfer, dwFlags, refused.GetError());
        return Outcome::Done;
    }
    const Outcome outcome = TransferBeside(transfer, *existing);
    if (outcome == Outcome::Done) {
        RememberPlaced(transfer);
    }
    return outcome;
}

CopyOptions OptionsFor(const TransferRules& rules, NameFolder& names)
{
    CopyOptions options;
    options.names = &names;
    options.replaceReadOnly = (rules.dwFlags & DCF_OVERWRITE_RO) != 0;
    return options;
}

}  // namespace

void TransferFile(CRunContext& ctx, const SourceFolder& source, TargetFolder& dest,
                  PendingFile& file, const TransferRules& rules)
{
    NamesInStaging names(rules.staging, dest);
    FileTransfer transfer{ctx, source, dest, file, file.data, rules, OptionsFor(rules, names)};
    const bool compares = (rules.dwFlags & (DCF_SYNC | DCF_INCREMENTAL)) != 0;
    const bool namesMayMeet = rules.IsFlat() || dest.Placed().IgnoresCase();
    if (namesMayMeet) {
        file.look.reset();  // another file of the entry may have been placed there since
    }
    if (!compares && !namesMayMeet && CopyIntoNewFolder(transfer)) {
        return RememberPlaced(transfer);
    }
    for (int decision = 1; decision <= kDecisions; ++decision) {
        transfer.options = OptionsFor(rules, names);
        if (TransferChecked(transfer) == Outcome::Done) {
            return;
        }
    }
    RefuseTransfer(transfer, rules.dwFlags, Error(ErrorKind::Changed));
}

}  // namespace quorbit
