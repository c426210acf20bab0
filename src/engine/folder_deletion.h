// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Deletes a folder recursively. Works relative to open folders, so that it cannot leave its tree
// even if another process replaces a folder with a link. Worker thread only.

#pragma once

#include <string>

#include "engine/run_context.h"
#include "engine/walk_rules.h"
#include "platform/file_system.h"

namespace quorbit {

// Deletes the content of a folder, including subfolders even without DCF_SUBFOLDERS. Keeps files
// that the attribute filter rejects, and therefore the folders above them. path: the path of the
// folder, with a trailing separator. Errors are reported.
void DeleteFolderTree(CRunContext& ctx, const Folder& folder, const std::string& path,
                      const WalkRules& rules);
// Removes an empty folder and logs it. path as above. Errors are reported.
void RemoveFolder(CRunContext& ctx, const Folder& parent, const std::string& name,
                  const std::string& path);

// Performs the folder deletion of an entry: deletes the content and the folder, and counts both as
// one unit. Refuses the root folder, the home folder and the folders above it with an error. If
// path is a volume, only its content is deleted.
void DeleteWholeFolder(CRunContext& ctx, const std::string& path, const WalkRules& rules);

}  // namespace quorbit
