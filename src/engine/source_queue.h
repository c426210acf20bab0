// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Returns the items of one source folder in listing order: folders to enter, and files that the
// entry selects. If the disk is slow, reads names ahead and prefetches their files in the
// background. The processing order stays the same, and at most 128 names are buffered. Worker
// thread only.

#pragma once

#include <cstddef>
#include <deque>
#include <memory>

#include "engine/folder_items.h"
#include "engine/pending_file.h"
#include "engine/read_ahead_policy.h"
#include "engine/walk_rules.h"
#include "platform/file_system.h"

namespace quorbit {

class SourceQueue {
public:
    // The arguments are not owned and must outlive this object.
    SourceQueue(FileSystem& files, const Folder& folder, FolderItems& listing,
                const WalkRules& rules, ReadAheadPolicy& policy);
    SourceQueue(const SourceQueue&) = delete;
    SourceQueue& operator=(const SourceQueue&) = delete;

    // Sets a new object to the next item. Returns false at the end and after a stop request, and
    // the error if listing fails.
    Result<bool> Next(PendingFile& item);
    // Reads size and time of a file, on this thread. Learns whether the disk is slow.
    void Complete(PendingFile& file);

private:
    void Fill(std::size_t window);
    bool ReadOne(FindData& data);
    [[nodiscard]] std::size_t Window();

    FileSystem& m_files;
    const Folder& m_folder;
    FolderItems& m_listing;
    const WalkRules& m_rules;
    ReadAheadPolicy& m_policy;
    std::deque<FindData> m_items;
    Result<bool> m_end = true;  // true until the listing ends or fails, then that result
};

}  // namespace quorbit
