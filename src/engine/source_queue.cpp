// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/source_queue.h"

#include <utility>

#include "engine/run_flags.h"

namespace quorbit {
namespace {

constexpr std::size_t kWindow = 64;     // items held while reading ahead
constexpr std::size_t kMostOpen = 256;  // files held open by all folders of a walk together
constexpr unsigned kSampleEvery = 16;   // how often a file is asked whether it is in memory
constexpr unsigned kCachedInRowToStop = 128;

}  // namespace

std::size_t ReadAheadPolicy::Window() const
{
    return m_bAhead && m_nOpen < kMostOpen ? kWindow : 1;
}

ReadAhead ReadAheadPolicy::Next()
{
    if (m_bAhead) {
        return ReadAhead::Start;
    }
    if (m_nUntilSample > 0) {
        --m_nUntilSample;
        return ReadAhead::No;
    }
    m_nUntilSample = kSampleEvery - 1;
    return ReadAhead::Start;
}

void ReadAheadPolicy::Learn(bool wasCached)
{
    if (!wasCached) {
        m_bAhead = true;
        m_nCachedInRow = 0;
    } else if (++m_nCachedInRow >= kCachedInRowToStop) {
        m_bAhead = false;
    }
}

SourceQueue::SourceQueue(FileSystem& files, const Folder& folder, Listing& listing,
                         const WalkRules& rules, ReadAheadPolicy& policy)
    : m_files(files), m_folder(folder), m_listing(listing), m_rules(rules), m_policy(policy)
{
}

SourceQueue::~SourceQueue()
{
    for (const QueuedItem& item : m_items) {
        if (item.source) {
            m_policy.Taken();
        }
    }
}

Result<bool> SourceQueue::Next(QueuedItem& item)
{
    Fill();
    if (m_items.empty()) {
        return m_end;
    }
    item = std::move(m_items.front());
    m_items.pop_front();
    if (item.source) {
        m_policy.Taken();
    }
    return true;
}

void SourceQueue::Fill()
{
    while (m_end && *m_end && m_items.size() < m_policy.Window()) {
        if (g_bStopRun) {  // also while it passes over what is not selected
            m_end = false;
            return;
        }
        QueuedItem item;
        m_end = m_listing.Next(item.data);
        if (!m_end || !*m_end || !Wanted(item.data)) {
            continue;
        }
        if (item.data.kind != ItemKind::Folder) {
            Prepare(item);
        }
        m_items.push_back(std::move(item));
    }
}

bool SourceQueue::Wanted(FindData& data) const
{
    // Only a kind that cannot be told stays unknown; the item is then reported as a file that
    // failed.
    if (data.kind == ItemKind::Unknown) {
        (void)m_files.ReadDetails(m_folder, data);
    }
    if (data.kind == ItemKind::Folder) {
        return m_rules.Has(DCF_SUBFOLDERS);
    }
    return !data.leftover && m_rules.SelectsName(data.name);
}

// A file that no later test can turn away is opened at once: that reads its details as well.
void SourceQueue::Prepare(QueuedItem& item)
{
    const bool surelyCopied =
        m_rules.Has(DCF_NO_ATTRS) && !m_rules.Has(DCF_DELETE | DCF_SYNC | DCF_INCREMENTAL);
    if (!surelyCopied || item.data.kind == ItemKind::Unknown) {
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
        m_policy.Learn(item.source->WasCached());
    }
    const FindData& details = item.source->Details();
    item.data.kind = details.kind;
    item.data.size = details.size;
    item.data.modified = details.modified;
    item.data.modifiedNsec = details.modifiedNsec;
    m_policy.Opened();
}

}  // namespace quorbit
