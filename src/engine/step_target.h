// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The destination folder of one step of a plan. Worker thread only.

#pragma once

#include <optional>

#include "engine/entry_plan.h"
#include "engine/target_folder.h"
#include "platform/file_system.h"

namespace quorbit {

class StepTarget {
public:
    // dest: the destination of the entry, shared by its steps. Not owned; must outlive this object.
    // Opens no folder.
    StepTarget(FileSystem& files, TargetFolder& dest, const PlanStep& step);

    // The folder into which the step copies.
    [[nodiscard]] TargetFolder& Folder() { return m_own ? *m_own : m_dest; }
    // True if the folder stands for the source folder of the step, and is not just where selected
    // files go.
    [[nodiscard]] bool MirrorsSource() const { return m_bMirrorsSource; }
    // Returns true for the destination folder of the step or of its entry. A walk must not enter
    // them, because it would copy its own copies.
    [[nodiscard]] bool IsAt(const FolderIdentity& folder);

private:
    TargetFolder& m_dest;
    bool m_bMirrorsSource;
    std::optional<TargetFolder> m_own;  // unless it is the folder of the entry
};

}  // namespace quorbit
