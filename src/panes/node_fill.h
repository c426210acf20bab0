// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Reads the children of one node in the background. Destruction stops the read. User interface
// thread only.

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "panes/slow_read.h"
#include "platform/error.h"
#include "platform/shell/folder_feed.h"

namespace quorbit {

class NodeFill {
public:
    explicit NodeFill(ShellFolderPtr folder) : m_folder(std::move(folder)) {}

    // Keeps the token of ShellTree::ShowRunning until this object is destroyed.
    void SetRunning(std::shared_ptr<void> running) { m_running = std::move(running); }

    // `deliver` as for FolderFeed; it may destroy this object.
    // `slow` is called with a text while the read takes long; see SlowRead.
    void Start(const FolderRequest& request, FolderFeed::Deliver deliver,
               std::function<void(const QString&)> slow)
    {
        m_slow = std::make_unique<SlowRead>(std::move(slow));
        m_feed = std::make_unique<FolderFeed>(m_folder, request, std::move(deliver));
    }

    void Answered() { m_slow->Answered(); }
    [[nodiscard]] const ShellFolderPtr& Folder() const { return m_folder; }

    std::size_t m_nConsidered = 0;              // items counted so far; see TreeVerdict
    std::vector<FolderItem> m_wanted;           // items accepted by the filter, without nodes yet
    std::vector<std::function<void()>> m_done;  // called when the children are in the tree

private:
    ShellFolderPtr m_folder;
    std::shared_ptr<void> m_running;
    std::unique_ptr<SlowRead> m_slow;
    std::unique_ptr<FolderFeed> m_feed;
};

}  // namespace quorbit
