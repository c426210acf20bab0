// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/staging_folders.h"

#include <utility>

namespace quorbit {

std::shared_ptr<const Folder> StagingFolders::Next(const std::shared_ptr<const Folder>& top,
                                                   const std::shared_ptr<const Folder>& destination)
{
    if (!top || !m_files.NamesCopies(*destination) || !m_files.MayStageIn(*top, *destination)) {
        return destination;
    }
    const std::lock_guard lock(m_mutex);
    auto taken = Take(*top, m_nCopies++ % kMost);
    return taken ? taken : destination;
}

const Folder* StagingFolders::ForNames(const std::shared_ptr<const Folder>& top,
                                       const Folder& destination)
{
    if (!top || !m_files.MayStageIn(*top, destination)) {
        return nullptr;
    }
    const std::lock_guard lock(m_mutex);
    return Take(*top, 0).get();
}

// With the lock. Creates the next folder if it is its turn. Null if none could be created.
std::shared_ptr<const Folder> StagingFolders::Take(const Folder& top, std::size_t turn)
{
    if (turn == m_folders.size() && !m_bUnable) {
        auto created = m_files.CreateStagingFolder(top);
        m_bUnable = !created;
        if (created) {
            m_folders.push_back(std::move(*created));
        }
    }
    return m_folders.empty() ? nullptr : m_folders[turn % m_folders.size()];
}

void StagingFolders::Remove()
{
    const std::lock_guard lock(m_mutex);
    m_folders.clear();
}

}  // namespace quorbit
