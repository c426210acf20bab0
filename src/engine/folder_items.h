// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Lists the items of one folder, for all walks. Worker thread only.

#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"

namespace quorbit {

class FolderItems {
public:
    // The file system and the folder are not owned and must outlive the result.
    [[nodiscard]] static Result<FolderItems> List(FileSystem& files, const Folder& folder);

    // Reads the next item in listing order and determines its kind if the listing does not contain
    // it. Returns false at the end, and as soon as a stop is requested. An error ends the listing;
    // do not treat it as the end of the folder.
    [[nodiscard]] Result<bool> Next(FindData& item);

private:
    FolderItems(FileSystem& files, const Folder& folder, std::unique_ptr<Listing> listing);

    FileSystem* m_pFiles;
    const Folder* m_pFolder;
    std::unique_ptr<Listing> m_listing;
};

// Returns the path of a subfolder, with a trailing separator. `folder` must end in a separator.
[[nodiscard]] std::string SubfolderPath(const std::string& folder, const std::string& name);

}  // namespace quorbit
