// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Deletes a folder recursively. Works on open folders only, so that it cannot leave its tree even
// if a folder in it is swapped for a link meanwhile. Worker thread only.

#pragma once

#include <string>

#include "engine/run_context.h"
#include "engine/walk_rules.h"
#include "platform/file_system.h"

namespace quorbit {

// Deletes what a folder holds, folders included, whatever DCF_SUBFOLDERS says. A file that the
// attribute filter turns away stays, and so do the folders above it. path is the folder's text with
// a closing separator.
void DeleteFolderTree(CRunContext& ctx, const Folder& folder, const std::string& path,
                      const WalkRules& rules);
// Removes an empty folder and logs it. path as above; a failure is reported.
void RemoveFolder(CRunContext& ctx, const Folder& parent, const std::string& name,
                  const std::string& path);

// A folder deletion as an entry asks for it: both of the above, and its unit of the counters. The
// root folder, the home folder and the folders above it are refused, which is reported as an error.
void DeleteWholeFolder(CRunContext& ctx, const std::string& path, const WalkRules& rules);

}  // namespace quorbit
