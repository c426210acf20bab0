// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The transfer of one file to its destination. Worker thread only.

#pragma once

#include <cstdint>
#include <string>

#include "batch/dir_copy.h"
#include "engine/file_operations.h"
#include "engine/hard_links.h"
#include "engine/pending_file.h"
#include "engine/run_context.h"
#include "engine/run_problem.h"
#include "engine/staging_folders.h"
#include "engine/target_folder.h"

namespace quorbit {

// The flags of an entry (DCF_... bits), and what is remembered while it is processed (not owned).
struct TransferRules {
    std::uint32_t dwFlags = 0;
    HardLinks& hardLinks;
    StagingFolders& staging;

    // The files of several source folders go into one folder.
    [[nodiscard]] bool IsFlat() const
    {
        return (dwFlags & (DCF_SUBFOLDERS | DCF_PRESERVE_TREE)) == DCF_SUBFOLDERS;
    }
};

// The arguments of the transfer of one file. Nothing is owned.
struct FileTransfer {
    CRunContext& ctx;
    const SourceFolder& source;
    TargetFolder& dest;
    PendingFile& file;
    const FindData& item;  // of the file
    const TransferRules& rules;
    CopyOptions options;
};

// The file and its destination, for a report.
[[nodiscard]] ProblemSubject SubjectOf(const FileTransfer& transfer, RunOperation operation);
void ReportTransferError(const FileTransfer& transfer, RunOperation operation, const Error& error);
void ReportTransferWarning(const FileTransfer& transfer, RunOperation operation, std::string text);

}  // namespace quorbit
