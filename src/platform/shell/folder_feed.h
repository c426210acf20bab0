// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Delivers the items that a FolderReader reads to a thread with an event loop, in batches small
// enough to keep it responsive, at most about 30 times per second.

#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

#include "platform/shell/folder_reader.h"

namespace quorbit {

class FolderFeed {
public:
    using Deliver = std::function<void(FolderBatch)>;

    // Starts reading at once. deliver is called from the event loop of the thread that creates the
    // feed, never from the constructor. The last call has batch.ended set and may contain no items.
    // deliver may destroy the feed.
    FolderFeed(ShellFolderPtr folder, const FolderRequest& request, Deliver deliver);
    // Stops reading and returns at once. Call it in the thread that created the feed.
    ~FolderFeed() = default;
    FolderFeed(const FolderFeed&) = delete;
    FolderFeed& operator=(const FolderFeed&) = delete;

private:
    void OnNews();
    void DeliverNow();

    Deliver m_deliver;
    bool m_bNews = false;   // undelivered items may exist
    bool m_bEnded = false;  // the last batch was delivered
    QTimer m_pause;         // active for a while after each delivery
    QObject m_receiver;     // target of the events that the reading thread posts
    FolderReader m_reader;
};

}  // namespace quorbit
