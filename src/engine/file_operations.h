// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Deletes one selected file, and creates and completes destination folders. Each operation first
// shows and logs its action. Worker thread only.

#pragma once

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

// Returns the warning about an attribute that a copy or a new folder lacks, see
// FileSystem::TakeNotKept.
[[nodiscard]] std::string NotKeptText(const std::string& attribute);

// Another item of the entry has the same name at the destination.
[[nodiscard]] Error SameNameError();

}  // namespace quorbit
