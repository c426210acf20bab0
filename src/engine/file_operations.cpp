// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/file_operations.h"

#include <optional>
#include <utility>

#include "batch/dir_copy.h"
#include "engine/backup_rotation.h"
#include "engine/failure_policy.h"
#include "engine/run_flags.h"
#include "engine/run_report.h"
#include "engine/transfer_decision.h"
#include "platform/path_text.h"

namespace quorbit {
namespace {

// A copy of this many bytes may take a while: what was logged before it is brought to the file
// first.
constexpr std::uint64_t kLongCopy = 1024 * 1024;

// Shows how far a copy has come.
class ShownProgress : public CopyProgress {
public:
    explicit ShownProgress(CRunContext& ctx) : m_ctx(ctx) {}
    void OnBytesCopied(std::uint64_t bytes) override { ShowBytes(m_ctx, bytes); }

private:
    CRunContext& m_ctx;
};

// What one file's transfer works with.
struct Transfer {
    CRunContext& ctx;
    const SourceFolder& source;
    TargetFolder& dest;
    const FindData& item;
    SourceFile* opened;
    CopyOptions options;
};

// The file at the destination; Missing as a value, any other error as an error.
Result<std::optional<FindData>> ProbeDestination(const Transfer& transfer)
{
    const Folder* folder = transfer.dest.Handle();
    if (!folder) {
        return std::optional<FindData>();  // the copy fails for want of a folder
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

// The same, after making sure that the folder stands. What holds the file stands; only a folder
// that does not hold it is looked after, and looked into again if it is another one then.
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
    EnsureFolder(transfer.ctx, transfer.source.path, dest, dest.Path(), &transfer.source.handle);
    const bool same = asked && dest.Handle() && dest.Handle()->Identity() == *asked;
    return same ? existing : ProbeDestination(transfer);
}

// The copy itself. A failure is left to be reported.
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
    return ctx.m_pFiles->CopyFile(*opened, *transfer.dest.Handle(), transfer.item.name, options);
}

// False if the copy failed; the failure has been reported.
bool Copy(const Transfer& transfer)
{
    const Status copied = TryCopy(transfer);
    if (!copied) {
        ReportFileError(transfer.ctx, copied.GetError());
    }
    return copied.Ok();
}

void CopyPlainly(Transfer& transfer, bool destinationExists)
{
    ShowAction(transfer.ctx, "Copying File.");
    transfer.options.expectMissing = !destinationExists;
    if (Copy(transfer)) {
        Raise(transfer.ctx, &CRunContext::m_nCopyCount, RunCounter::Copy);
    }
}

// In a folder that the run has made itself nothing has the file's name, unless somebody put it
// there meanwhile: then the copy finds it. So the folder is not asked before each file. False if
// the folder has gone, or is not new: then nothing is copied or reported, and the way of all files
// makes it again.
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
        ReportFileError(ctx, copied.GetError());
    } else {
        return false;
    }
    return true;
}

void CopyNewer(const Transfer& transfer)
{
    ShowAction(transfer.ctx, "Sync File.");
    if (Copy(transfer)) {
        Raise(transfer.ctx, &CRunContext::m_nSyncCount, RunCounter::Sync);
    }
}

void CopyWithBackup(Transfer& transfer)
{
    CRunContext& ctx = transfer.ctx;
    const std::string& name = transfer.item.name;
    const Rotation rotation = RotateBackup(*ctx.m_pFiles, *transfer.dest.Handle(), name);
    ShowAction(ctx, rotation == Rotation::NoneFree ? "Didn't backup file. Backup max reached."
                                                   : "Incrementing backup.");
    // An old file that has its number is safe: its read-only attribute does not guard the plain
    // name any more.
    if (rotation == Rotation::Linked) {
        transfer.options.replaceReadOnly = true;
    }
    if (Copy(transfer)) {
        Raise(ctx, &CRunContext::m_nBackupCount, RunCounter::Backup);
    } else if (rotation == Rotation::Linked) {
        // The older version stands under its number alone, so that the next run copies the file
        // afresh. Should this fail, the next run merely numbers the same version once more.
        (void)ctx.m_pFiles->DeleteFile(*transfer.dest.Handle(), name);
    }
}

// By what stands at the destination: none if the file is missing there.
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
            return CopyPlainly(transfer, existing.has_value());
        case TransferAction::Sync:
            return CopyNewer(transfer);
        case TransferAction::LeaveSync:
            ShowAction(ctx, "Didn't Sync File.");
            return Raise(ctx, &CRunContext::m_nDidntSyncCount, RunCounter::DidntSync);
        case TransferAction::Backup:
            return CopyWithBackup(transfer);
        case TransferAction::LeaveBackup:
            return ShowAction(ctx, "Didn't backup file. No change detected.");
    }
}

}  // namespace

void TransferFile(CRunContext& ctx, const SourceFolder& source, TargetFolder& dest,
                  const FindData& item, SourceFile* opened, std::uint32_t dwFlags)
{
    Transfer transfer{ctx, source, dest, item, opened, {}};
    transfer.options.replaceReadOnly = (dwFlags & DCF_OVERWRITE_RO) != 0;
    if ((dwFlags & (DCF_SYNC | DCF_INCREMENTAL)) == 0 && CopyIntoNewFolder(transfer)) {
        return;
    }
    // Only an open folder can tell whether the file is there. One that merely could not be opened a
    // moment ago must not pass for one without the file.
    const auto existing = FindDestination(transfer);
    if (g_bStopRun) {
        return;
    }
    if (!existing) {
        ShowAction(ctx, "Copying File.");
        ReportFileError(ctx, existing.GetError());
        return;
    }
    TransferBeside(transfer, *existing, dwFlags);
}

void DeleteOneFile(CRunContext& ctx, const SourceFolder& source, const std::string& name)
{
    ShowAction(ctx, "Delete File.");
    const Status deleted = ctx.m_pFiles->DeleteFile(source.handle, name);
    if (deleted) {
        Raise(ctx, &CRunContext::m_nDeleteCount, RunCounter::Delete);
    } else {
        ReportFileError(ctx, deleted.GetError());
    }
}

void EnsureFolder(CRunContext& ctx, const std::string& source, TargetFolder& dest,
                  const std::string& asGiven, const Folder* like)
{
    if (dest.Stands() || dest.IsTop()) {
        return;
    }
    Status created = dest.Create(like);
    if (!created) {
        TargetFolder& parent = dest.Parent();
        std::string parentPath = parent.Path();
        if (!parent.IsTop()) {
            parentPath.pop_back();
        }
        EnsureFolder(ctx, source, parent, parentPath, nullptr);
        if (dest.Stands()) {
            return;  // somebody else made it meanwhile
        }
        created = dest.Create(like);
        if (!created) {
            ShowCurrentFile(ctx, asGiven, false, true);
            ReportFileError(ctx, created.GetError());
            return;
        }
    }
    ShowAction(ctx, "Create Folder.");
    ShowCurrentFile(ctx, source, true, true);
    ShowDestFile(ctx, asGiven, true, true);
}

}  // namespace quorbit
