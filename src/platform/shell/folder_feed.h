// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Brings what a FolderReader reads into a thread with an event loop, in portions that such a thread
// can take without standing still, at most about 30 times a second.

#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

#include "platform/shell/folder_reader.h"

namespace quorbit {

class FolderFeed {
public:
    using Deliver = std::function<void(FolderBatch)>;

    // Begins at once. deliver is called by the event loop of the thread that makes the feed, never
    // from within the constructor; the last time with a batch that has ended, possibly without
    // items. It may destroy the feed.
    FolderFeed(ShellFolderPtr folder, const FolderRequest& request, Deliver deliver);
    // Stops the reading and returns at once. To be called in the thread that made it.
    ~FolderFeed() = default;
    FolderFeed(const FolderFeed&) = delete;
    FolderFeed& operator=(const FolderFeed&) = delete;

private:
    void OnNews();
    void DeliverNow();

    Deliver m_deliver;
    bool m_bNews = false;   // something may be there that has not been delivered
    bool m_bEnded = false;  // the last batch has been delivered
    QTimer m_pause;         // runs for a while after each delivery
    QObject m_receiver;     // what the reading thread posts to
    FolderReader m_reader;
};

}  // namespace quorbit
