// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The steps that a run performs for one entry. Only this code interprets the fields of an entry. A
// plan consists of plain values and is built without disk access, so that it can be counted,
// processed, simulated or described. Any thread.

#pragma once

#include <string>
#include <vector>

#include "batch/dir_copy.h"
#include "engine/walk_rules.h"

namespace quorbit {

enum class StepKind {
    Walk,          // transfers or deletes the selected files of a folder
    DeleteFolder,  // deletes a folder recursively
    RunScript,
};

struct PlanStep {
    StepKind kind = StepKind::Walk;
    // The folder, with a trailing separator, or the path of the script. Empty if the entry names
    // none; the step then fails.
    std::string source;
    // The destination folder of a walk, with a trailing separator; empty if the step copies
    // nothing.
    std::string target;
    // The name of the target inside the destination of the entry. Empty if the target is that
    // destination, or if it must be opened by its own path.
    std::string targetName;
    // Create the target before the walk, even if no file is copied. Otherwise the first file
    // creates it.
    bool makesTarget = false;
    // The count pass adds one unit without disk access. Otherwise it walks the source.
    bool oneUnit = false;
};

struct EntryPlan {
    WalkRules rules;          // for all steps
    std::string destination;  // of the entry, with a trailing separator; empty if unused
    // The folder that contains the folders of a list, with a trailing separator; empty if there is
    // none.
    std::string listSource;
    std::vector<PlanStep> steps;  // in processing order
    // The count pass adds one unit for the entry, regardless of its steps.
    bool oneUnit = false;
};

[[nodiscard]] EntryPlan PlanOf(const CDirCopy& entry);

}  // namespace quorbit
