// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/transfer_copy.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "engine/failure_policy.h"
#include "engine/run_report.h"

namespace quorbit {
namespace {

// Shows the progress of a copy.
class ShownProgress : public CopyProgress {
public:
    explicit ShownProgress(CRunContext& ctx) : m_ctx(ctx) {}
    void OnBytesCopied(std::uint64_t bytes) override { ShowBytes(m_ctx, bytes); }

private:
    CRunContext& m_ctx;
};

// Copies the file. A further name of a file that was copied before becomes a hard link to the copy.
Status CopyOrLink(const FileTransfer& transfer, SourceFile& opened, CopyOptions options)
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

// Copies the file in its turn and returns the error without reporting it.
Status CopyNow(const FileTransfer& transfer)
{
    CRunContext& ctx = transfer.ctx;
    if (transfer.item.size >= kLongCopy) {
        FlushLog(ctx);
    }
    if (!transfer.file.source) {
        auto opened =
            ctx.m_pFiles->OpenSource(transfer.source.handle, transfer.item, ReadAhead::No);
        if (!opened) {
            return opened.GetError();
        }
        transfer.file.source = std::move(*opened);
    }
    if (!transfer.dest.Handle()) {
        return Error(ErrorKind::Missing);
    }
    ShownProgress progress(ctx);
    CopyOptions options = transfer.options;
    options.progress = &progress;
    options.durable = ctx.m_bSyncAtEnd;
    return CopyOrLink(transfer, *transfer.file.source, options);
}

// Places the copy that was made ready. Returns nullopt if there is none, or if it cannot be placed
// for a reason that the copy in the file's turn will meet as well.
std::optional<Status> PlaceReadyCopy(const FileTransfer& transfer)
{
    std::unique_ptr<PreparedCopy>& copy = transfer.file.copy;
    if (!copy || !transfer.dest.Handle()) {
        return std::nullopt;
    }
    CRunContext& ctx = transfer.ctx;
    Status placed =
        ctx.m_pFiles->Place(*copy, *transfer.dest.Handle(), transfer.item.name, transfer.options);
    if (!placed && !IsStale(transfer, placed)) {
        copy.reset();
        return std::nullopt;
    }
    if (placed) {
        ShowBytes(ctx, transfer.item.size);
    }
    return placed;
}

}  // namespace

Status ShowAndCopy(const FileTransfer& transfer, std::string_view action)
{
    CRunContext& ctx = transfer.ctx;
    std::optional<Status> copied = PlaceReadyCopy(transfer);
    if (copied && !*copied) {
        return *copied;
    }
    ShowAction(ctx, action);
    if (!copied) {
        copied = CopyNow(transfer);
    }
    const std::vector<std::string> notKept = ctx.m_pFiles->TakeNotKept();
    if (*copied) {
        transfer.dest.MarkChanged();
        for (const std::string& attribute : notKept) {
            ReportTransferWarning(transfer, RunOperation::Copy, NotKeptText(attribute));
        }
    }
    return *copied;
}

bool IsStale(const FileTransfer& transfer, const Status& copied)
{
    if (copied) {
        return false;
    }
    const ErrorKind kind = copied.GetError().Kind();
    const Folder* folder = transfer.dest.Handle();
    return kind == ErrorKind::Changed ||
           (kind == ErrorKind::AlreadyExists && transfer.options.mustBeMissing) ||
           (kind == ErrorKind::Missing && folder != nullptr &&
            !transfer.ctx.m_pFiles->StillThere(*folder));
}

void ReportCopyError(const FileTransfer& transfer, RunOperation operation, const Error& error)
{
    if (error.Kind() == ErrorKind::ItemNotSupported) {
        ReportWarning(transfer.ctx, SubjectOf(transfer, operation), error.Kind(),
                      "Not copied: " + error.Text());
    } else {
        ReportTransferError(transfer, operation, error);
    }
}

}  // namespace quorbit
