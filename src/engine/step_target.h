// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The destination folders of one step of a plan. Worker thread only.

#pragma once

#include <optional>

#include "engine/entry_plan.h"
#include "engine/target_folder.h"
#include "platform/file_system.h"

namespace quorbit {

class StepTarget {
public:
    // dest is the destination of the entry, which its steps share; it must outlive this object.
    // Opens nothing yet.
    StepTarget(FileSystem& files, TargetFolder& dest, const PlanStep& step);

    // Where the step puts its files.
    [[nodiscard]] TargetFolder& Folder() { return m_own ? *m_own : m_dest; }
    // Whether this is the folder of the step or of its entry: a walk must not go into what it
    // fills.
    [[nodiscard]] bool IsAt(const FolderIdentity& folder);

private:
    TargetFolder& m_dest;
    std::optional<TargetFolder> m_own;  // where it is another folder than that of the entry
};

}  // namespace quorbit
