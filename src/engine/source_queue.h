// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The items of one source folder that a walk has to look at, in listing order: its folders, and the
// files that the entry selects. Files that will surely be copied are opened here, and, while the
// disk turns out to be slower than the memory, some of them ahead of their turn, so that the system
// can fetch their content meanwhile. The order of the work does not change, and no more than a
// fixed number of items is held.

#pragma once

#include <cstddef>
#include <deque>
#include <memory>

#include "engine/walk_rules.h"
#include "platform/file_system.h"

namespace quorbit {

// Whether reading ahead pays. One for a whole run, since the caches are one.
class ReadAheadPolicy {
public:
    // How many items a folder's queue may hold now.
    [[nodiscard]] std::size_t Window() const;
    // What the next file that is opened is to be asked.
    [[nodiscard]] ReadAhead Next();
    // What came of a file that was opened with ReadAhead::Start.
    void Learn(bool wasCached);

    void Opened() { ++m_nOpen; }
    void Taken() { --m_nOpen; }

private:
    bool m_bAhead = false;
    unsigned m_nUntilSample = 0;
    unsigned m_nCachedInRow = 0;
    std::size_t m_nOpen = 0;
};

struct QueuedItem {
    FindData data;
    std::unique_ptr<SourceFile> source;  // null if it is to be opened later
    Status details;                      // whether size and time could be read
};

class SourceQueue {
public:
    // All of them must outlive the queue.
    SourceQueue(FileSystem& files, const Folder& folder, Listing& listing, const WalkRules& rules,
                ReadAheadPolicy& policy);
    ~SourceQueue();
    SourceQueue(const SourceQueue&) = delete;
    SourceQueue& operator=(const SourceQueue&) = delete;

    // The next item; false at the end. An error is the listing's.
    Result<bool> Next(QueuedItem& item);

private:
    void Fill();
    [[nodiscard]] bool Wanted(FindData& data) const;
    void Prepare(QueuedItem& item);

    FileSystem& m_files;
    const Folder& m_folder;
    Listing& m_listing;
    const WalkRules& m_rules;
    ReadAheadPolicy& m_policy;
    std::deque<QueuedItem> m_items;
    Result<bool> m_end = true;  // true while the listing goes on, then its end or its error
};

}  // namespace quorbit
