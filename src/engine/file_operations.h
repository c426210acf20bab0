// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The work on one file once a walk has selected it. Every operation announces itself as an action
// before it acts and raises one counter of the run, or none. Worker thread only.

#pragma once

#include <cstdint>
#include <string>

#include "engine/run_context.h"
#include "engine/target_folder.h"
#include "platform/file_system.h"

namespace quorbit {

// A folder of the source: its text with a closing separator, and the open folder.
struct SourceFolder {
    std::string path;
    const Folder& handle;
};

// Copies, syncs, backs up or leaves one file, by the flags of its entry. `opened` is the file in
// hand if it was opened already, else null.
void TransferFile(CRunContext& ctx, const SourceFolder& source, TargetFolder& dest,
                  const FindData& item, SourceFile* opened, std::uint32_t dwFlags);

void DeleteOneFile(CRunContext& ctx, const SourceFolder& source, const std::string& name);

// Makes sure that a folder stands at the destination, creating what is missing from the top down.
// `source` and `asGiven` are the lines of its report; `like` gives the new folder its permissions
// and may be null.
void EnsureFolder(CRunContext& ctx, const std::string& source, TargetFolder& dest,
                  const std::string& asGiven, const Folder* like);

}  // namespace quorbit
