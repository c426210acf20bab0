// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Walks a source folder in the count pass and in the process pass. Items are processed in listing
// order and not collected, so memory grows with the depth of a tree, not with its size. Neither
// walk enters the target of its step. Worker thread only.

#pragma once

#include <string>

#include "engine/hard_links.h"
#include "engine/lanes.h"
#include "engine/read_ahead_policy.h"
#include "engine/run_context.h"
#include "engine/step_target.h"
#include "engine/walk_rules.h"

namespace quorbit {

// Adds the selected files of a folder to the files left. Skips a folder that cannot be listed;
// ProcessFolder reports it. Returns false if the user gave up counting.
[[nodiscard]] bool CountFolder(CRunContext& ctx, const std::string& folder, StepTarget& target,
                               const WalkRules& rules);

// What walks remember; not owned.
struct WalkMemory {
    Lanes& lanes;                // of the run
    ReadAheadPolicy& readAhead;  // of the run
    HardLinks& hardLinks;        // of the entry
};

// Transfers the selected files of a folder to the target, or deletes them. Errors are reported.
// Returns false if a stop was requested before it started.
[[nodiscard]] bool ProcessFolder(CRunContext& ctx, const std::string& source, StepTarget& target,
                                 const WalkRules& rules, WalkMemory& memory);

}  // namespace quorbit
