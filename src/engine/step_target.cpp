// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/step_target.h"

namespace quorbit {

StepTarget::StepTarget(FileSystem& files, TargetFolder& dest, const PlanStep& step)
    : m_dest(dest), m_bMirrorsSource(step.makesTarget)
{
    if (!step.targetName.empty()) {
        m_own.emplace(dest, step.targetName);
    } else if (!step.target.empty() && step.target != dest.Path()) {
        m_own.emplace(files, step.target);
    }
}

bool StepTarget::IsAt(const FolderIdentity& folder)
{
    return m_dest.Is(folder) || (m_own && m_own->Is(folder));
}

}  // namespace quorbit
