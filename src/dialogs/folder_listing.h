// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The names in a folder, read in a thread of its own, so that a window stays alive while a disk
// does not answer. User interface thread only.

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/shell/folder_feed.h"

namespace quorbit {

// The folder of the namespace at a path, native or of a mapped drive; null if the text is no
// absolute path. Touches no disk: whether there is such a folder shows when it is read.
[[nodiscard]] ShellFolderPtr FindFolder(const ShellFolder& desktop, const std::string& path);

enum class ListedKind : std::uint8_t { Files, Folders };  // files: all that is no folder

class FolderListing {
public:
    // The names as bytes, hidden ones among them, in portions, in no order.
    using Deliver = std::function<void(const std::vector<std::string>&)>;

    // Begins at once; deliver is called by the event loop, and must not destroy the listing. A
    // folder that cannot be read gives no names and no message. desktop may be null.
    FolderListing(const ShellFolderPtr& desktop, const std::string& path, ListedKind kind,
                  Deliver deliver);

private:
    std::optional<FolderFeed> m_feed;
};

}  // namespace quorbit
