// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Copies, replaces or deletes one selected file, and creates destination folders. Each operation
// first shows and logs its action, and then raises one counter or none. Worker thread only.

#pragma once

#include <cstdint>
#include <string>

#include "engine/run_context.h"
#include "engine/target_folder.h"
#include "platform/file_system.h"

namespace quorbit {

// A source folder: its path with a trailing separator, and the open folder (not owned).
struct SourceFolder {
    std::string path;
    const Folder& handle;
};

// Copies, syncs, backs up or skips one file, depending on the flags of its entry. `opened` is the
// source file if it is already open, otherwise null; not owned. Errors are reported.
void TransferFile(CRunContext& ctx, const SourceFolder& source, TargetFolder& dest,
                  const FindData& item, SourceFile* opened, std::uint32_t dwFlags);

// Deletes a file of the source folder. Errors are reported.
void DeleteOneFile(CRunContext& ctx, const SourceFolder& source, const std::string& name);

// Creates a destination folder and its missing parents. `source` and `asGiven` are the paths to
// log. The new folder gets the permissions of `like`, which may be null; new parents get the
// defaults. If that fails, reports one error, gives up the folder and returns false, as all later
// calls for the folder and its subfolders do without a further error.
bool EnsureFolder(CRunContext& ctx, const std::string& source, TargetFolder& dest,
                  const std::string& asGiven, const Folder* like);

}  // namespace quorbit
