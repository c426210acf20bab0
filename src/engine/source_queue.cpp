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
    : m_files(files),
      m_folder(folder),
      m_listing(listing),
      m_rules(rules),
      m_policy(policy),
      m_bSurelyCopied(rules.Has(DCF_NO_ATTRS) &&
                      !rules.Has(DCF_DELETE | DCF_SYNC | DCF_INCREMENTAL))
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
    if (item.data.kind != ItemKind::Folder) {
        Prepare(item);
    }
    return true;
}

std::size_t SourceQueue::Window()
{
    if (!m_bSurelyCopied || !m_policy.Pays()) {
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

// Completes the details of a file. Opens it if it will certainly be copied, which also reads the
// details.
void SourceQueue::Prepare(PendingFile& item)
{
    if (!m_bSurelyCopied || item.data.kind == ItemKind::Unknown) {
        item.details = m_files.ReadDetails(m_folder, item.data);
        return;
    }
    const ReadAhead ahead = m_policy.Next();
    auto opened = m_files.OpenSource(m_folder, item.data, ahead);
    if (!opened) {
        item.details = m_files.ReadDetails(m_folder, item.data);
        return;
    }
    item.source = std::move(*opened);
    if (ahead == ReadAhead::Start) {
        m_policy.Learn(item.source->WasCached(), m_files.FetchedInVain());
    }
    const FindData& details = item.source->Details();
    item.data.kind = details.kind;
    item.data.size = details.size;
    item.data.modified = details.modified;
    item.data.modifiedNsec = details.modifiedNsec;
    item.data.device = details.device;
    item.data.inode = details.inode;
    item.data.links = details.links;
}

}  // namespace quorbit
