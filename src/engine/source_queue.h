// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The items of one source folder that a walk has to look at, in listing order: its folders, and the
// files that the entry selects. Files that will surely be copied are handed out open. While the
// disk turns out to be slower than the memory, names are read ahead from the listing and the files
// are fetched in the background. The order of the work does not change, and no more than a fixed
// number of names is held. Worker thread only.

#pragma once

#include <cstddef>
#include <deque>
#include <memory>

#include "engine/folder_items.h"
#include "engine/read_ahead_policy.h"
#include "engine/walk_rules.h"
#include "platform/file_system.h"

namespace quorbit {

struct QueuedItem {
    FindData data;
    std::unique_ptr<SourceFile> source;  // null if it is to be opened later
    Status details;                      // whether size and time could be read
};

class SourceQueue {
public:
    // All of them must outlive the queue.
    SourceQueue(FileSystem& files, const Folder& folder, FolderItems& listing,
                const WalkRules& rules, ReadAheadPolicy& policy);
    SourceQueue(const SourceQueue&) = delete;
    SourceQueue& operator=(const SourceQueue&) = delete;

    // The next item; false at the end, and once a stop was asked for. An error is the listing's.
    Result<bool> Next(QueuedItem& item);

private:
    void Fill(std::size_t window);
    bool ReadOne(FindData& data);
    [[nodiscard]] std::size_t Window();
    void Prepare(QueuedItem& item);

    FileSystem& m_files;
    const Folder& m_folder;
    FolderItems& m_listing;
    const WalkRules& m_rules;
    ReadAheadPolicy& m_policy;
    bool m_bSurelyCopied;  // no later test can turn a file away
    std::deque<FindData> m_items;
    Result<bool> m_end = true;  // true while the listing goes on, then its end or its error
};

}  // namespace quorbit
