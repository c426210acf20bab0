// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The walks of the two passes over a source folder. They work directly in the listing, in the order
// in which the file system gives it, and build no list of files: memory grows with the depth of a
// tree, not with its size. Neither goes into the target of its step. Worker thread only.

#pragma once

#include <string>

#include "engine/read_ahead_policy.h"
#include "engine/run_context.h"
#include "engine/step_target.h"
#include "engine/walk_rules.h"

namespace quorbit {

// Adds the selected files of a folder to the files left. A folder that cannot be listed counts
// nothing and is reported by ProcessFolder. False when the count was given up.
[[nodiscard]] bool CountFolder(CRunContext& ctx, const std::string& folder, StepTarget& target,
                               const WalkRules& rules);

// Transfers the selected files of a folder to the target, or deletes them. False if a stop was
// asked for before it began.
[[nodiscard]] bool ProcessFolder(CRunContext& ctx, const std::string& source, StepTarget& target,
                                 const WalkRules& rules, ReadAheadPolicy& readAhead);

}  // namespace quorbit
