// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Reads the names in a folder in a background thread, so that the window stays responsive while a
// disk does not respond. User interface thread only.

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/shell/folder_feed.h"

namespace quorbit {

// Returns the shell folder of a path, native or on a mapped drive, or null if `path` is not
// absolute. Does not access the disk: errors show when the folder is read.
[[nodiscard]] ShellFolderPtr FindFolder(const ShellFolder& desktop, const std::string& path);

enum class ListedKind : std::uint8_t { Files, Folders };  // Files: everything except folders

class FolderListing {
public:
    // Receives the names in portions: bytes, unsorted, including hidden ones.
    using Deliver = std::function<void(const std::vector<std::string>&)>;

    // Starts to read. `deliver` is called from the event loop and must not destroy the listing. A
    // folder that cannot be read yields no names and no error. `desktop` may be null.
    FolderListing(const ShellFolderPtr& desktop, const std::string& path, ListedKind kind,
                  Deliver deliver);

private:
    std::optional<FolderFeed> m_feed;
};

}  // namespace quorbit
