// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/source_queue.h"

#include <utility>

namespace quorbit {
namespace {

constexpr std::size_t kWindow = 128;  // names buffered while prefetching

}  // namespace

SourceQueue::SourceQueue(FileSystem& files, const Folder& folder, FolderItems& listing,
                         const WalkRules& rules, ReadAheadPolicy& policy)
    : m_files(files), m_folder(folder), m_listing(listing), m_rules(rules), m_policy(policy)
{
}

Result<bool> SourceQueue::Next(PendingFile& item)
{
    const std::size_t window = Window();
    if (window > 1) {
        Fill(window);
    }
    if (!m_items.empty()) {
        item.data = std::move(m_items.front());
        m_items.pop_front();
    } else if (!ReadOne(item.data)) {
        return m_end;
    }
    return true;
}

std::size_t SourceQueue::Window()
{
    if (!m_rules.CopiesAll() || !m_policy.Pays()) {
        return 1;
    }
    m_policy.LearnFetched(m_files.FetchedInVain());
    return m_policy.Pays() ? kWindow : 1;
}

void SourceQueue::Fill(std::size_t window)
{
    FindData data;
    while (m_items.size() < window && ReadOne(data)) {
        m_files.FetchAhead(m_folder, data);
        m_items.push_back(std::move(data));
    }
}

// Reads the next selected item. Returns false at the end or on an error, which m_end then contains.
bool SourceQueue::ReadOne(FindData& data)
{
    while (m_end && *m_end) {
        m_end = m_listing.Next(data);
        if (m_end && *m_end && m_rules.Takes(data)) {
            return true;
        }
    }
    return false;
}

void SourceQueue::Complete(PendingFile& file)
{
    const ReadAhead ahead = m_rules.CopiesAll() ? m_policy.Next() : ReadAhead::No;
    ReadFileDetails(m_files, m_rules, m_folder, file, ahead);
    if (ahead == ReadAhead::Start && file.source) {
        m_policy.Learn(file.source->WasCached(), m_files.FetchedInVain());
    }
}

}  // namespace quorbit
