// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Copies, replaces or deletes one selected file, and creates destination folders. Each operation
// first shows and logs its action, and then raises one counter or none. Worker thread only.

#pragma once

#include <cstdint>
#include <string>

#include "batch/dir_copy.h"
#include "engine/hard_links.h"
#include "engine/run_context.h"
#include "engine/target_folder.h"
#include "platform/file_system.h"

namespace quorbit {

// A source folder: its path with a trailing separator, and the open folder (not owned).
struct SourceFolder {
    std::string path;
    const Folder& handle;
};

// The flags of an entry (DCF_... bits), and what is remembered while it is processed (not owned).
struct TransferRules {
    std::uint32_t dwFlags = 0;
    HardLinks& hardLinks;

    // The files of several source folders go into one folder.
    [[nodiscard]] bool IsFlat() const
    {
        return (dwFlags & (DCF_SUBFOLDERS | DCF_PRESERVE_TREE)) == DCF_SUBFOLDERS;
    }
};

// Copies, syncs, backs up or skips one file, depending on the rules. `opened` is the source file if
// it is already open, otherwise null; not owned. Errors are reported.
void TransferFile(CRunContext& ctx, const SourceFolder& source, TargetFolder& dest,
                  const FindData& item, SourceFile* opened, const TransferRules& rules);

// Checks a destination folder that was opened for a source folder `source`. Returns false and
// reports an error if another source folder is the same folder at the destination, because the
// destination ignores case. parent: contains dest.
bool ClaimFolder(CRunContext& ctx, const std::string& source, TargetFolder& parent,
                 TargetFolder& dest, const std::string& name);

// Gives the destination folder the last-write time of its source if this run changed it. Call it
// when nothing more will be placed in the folder. Failures are warnings.
void KeepFolderTime(CRunContext& ctx, const SourceFolder& source, TargetFolder& dest);

// Deletes a file of the source folder. Errors are reported.
void DeleteOneFile(CRunContext& ctx, const SourceFolder& source, const std::string& name);

// Creates a destination folder and its missing parents. `source` and `asGiven` are the paths to
// log. The new folder gets the permissions of `like`, which may be null; new parents get the
// defaults. If that fails, reports one error, gives up the folder and returns false, as all later
// calls for the folder and its subfolders do without a further error.
bool EnsureFolder(CRunContext& ctx, const std::string& source, TargetFolder& dest,
                  const std::string& asGiven, const Folder* like);

}  // namespace quorbit
