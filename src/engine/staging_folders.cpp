// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/staging_folders.h"

namespace quorbit {

std::shared_ptr<const Folder> StagingFolders::Next(const std::shared_ptr<const Folder>& top,
                                                   const std::shared_ptr<const Folder>& destination)
{
    if (!top || !m_files.MayStageIn(*top, *destination)) {
        return destination;
    }
    const std::lock_guard lock(m_mutex);
    const std::size_t turn = m_nCopies++ % kMost;
    if (turn == m_folders.size() && !m_bUnable) {
        auto created = m_files.CreateStagingFolder(*top);
        m_bUnable = !created;
        if (created) {
            m_folders.push_back(std::move(*created));
        }
    }
    return m_folders.empty() ? destination : m_folders[turn % m_folders.size()];
}

void StagingFolders::Remove()
{
    const std::lock_guard lock(m_mutex);
    m_folders.clear();
}

}  // namespace quorbit
