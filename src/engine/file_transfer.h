// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Copies, replaces or skips one selected file. Each operation shows and logs its action and raises
// one counter or none. Worker thread only.

#pragma once

#include <cstdint>

#include "batch/dir_copy.h"
#include "engine/file_operations.h"
#include "engine/hard_links.h"
#include "engine/pending_file.h"
#include "engine/run_context.h"
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

// Copies, syncs, backs up or skips one file, depending on the rules. Uses what was made ready in
// `file`; if the destination has changed since, decides anew. Errors are reported.
void TransferFile(CRunContext& ctx, const SourceFolder& source, TargetFolder& dest,
                  PendingFile& file, const TransferRules& rules);

}  // namespace quorbit
