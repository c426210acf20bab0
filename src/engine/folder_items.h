// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The items of one folder as every walk reads them. Worker thread only.

#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"

namespace quorbit {

class FolderItems {
public:
    // The folder and the file system must outlive the reading.
    [[nodiscard]] static Result<FolderItems> List(FileSystem& files, const Folder& folder);

    // The next item in the order of the listing, its kind found out where the listing leaves it
    // open. False at the end, and as soon as a stop was asked for. An error ends the reading; it
    // must not pass for the end of the folder.
    [[nodiscard]] Result<bool> Next(FindData& item);

private:
    FolderItems(FileSystem& files, const Folder& folder, std::unique_ptr<Listing> listing);

    FileSystem* m_pFiles;
    const Folder* m_pFolder;
    std::unique_ptr<Listing> m_listing;
};

// The path of a folder below one whose path ends in a separator, with a closing separator.
[[nodiscard]] std::string SubfolderPath(const std::string& folder, const std::string& name);

}  // namespace quorbit
