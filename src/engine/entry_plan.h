// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a run does for one entry: the one place where an entry is understood. A plan is made of
// plain values and asks no disk, so that it can be counted, carried out, simulated or described.
// Any thread.

#pragma once

#include <string>
#include <vector>

#include "batch/dir_copy.h"
#include "engine/walk_rules.h"

namespace quorbit {

enum class StepKind {
    Walk,          // transfers or deletes the selected files of a folder
    DeleteFolder,  // deletes a folder with all that it holds
    RunScript,
};

struct PlanStep {
    StepKind kind = StepKind::Walk;
    // The folder, with a closing separator, or the path of the script. Empty: the entry names none,
    // and the step fails.
    std::string source;
    // Where a walk puts files, with a closing separator; empty if it puts them nowhere.
    std::string target;
    // The name under which the target is opened in the destination of the entry; empty if it is
    // that destination, or has to be opened by its own path.
    std::string targetName;
    // The target is made before the walk, also if no file will come; else with its first file.
    bool makesTarget = false;
    // The count pass adds one unit without a look at the disk; else it walks the source.
    bool oneUnit = false;
};

struct EntryPlan {
    WalkRules rules;              // of every step
    std::string destination;      // of the entry, with a closing separator; empty if none is used
    std::vector<PlanStep> steps;  // in their order
    // The count pass adds one unit for the entry, whatever its steps.
    bool oneUnit = false;
};

[[nodiscard]] EntryPlan PlanOf(const CDirCopy& entry);

}  // namespace quorbit
