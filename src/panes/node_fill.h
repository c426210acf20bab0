// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The reading of one node's children, as long as it goes on. Stops when it is destroyed. User
// interface thread only.

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "platform/shell/folder_feed.h"

namespace quorbit {

class NodeFill {
public:
    explicit NodeFill(ShellFolderPtr folder) : m_folder(std::move(folder)) {}

    // Kept until the reading is over, however it ends.
    void SetRunning(std::shared_ptr<void> running) { m_running = std::move(running); }

    // deliver: as of FolderFeed; it may destroy this object.
    void Start(const FolderRequest& request, FolderFeed::Deliver deliver)
    {
        m_feed = std::make_unique<FolderFeed>(m_folder, request, std::move(deliver));
    }

    [[nodiscard]] const ShellFolderPtr& Folder() const { return m_folder; }

    std::size_t m_nConsidered = 0;              // items that count as considered so far
    std::vector<FolderItem> m_wanted;           // those that nodes are to be made of
    std::vector<std::function<void()>> m_done;  // called when the children stand in the tree

private:
    ShellFolderPtr m_folder;
    std::shared_ptr<void> m_running;
    std::unique_ptr<FolderFeed> m_feed;
};

}  // namespace quorbit
