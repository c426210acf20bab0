// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Private folders at the destination, in which lanes create copies that have a name from the start.
// Creating a file locks its folder until the file system has answered, and renaming locks both
// folders, so several of them take turns. Any thread.

#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/file_system.h"

namespace quorbit {

class StagingFolders {
public:
    static constexpr std::size_t kMost = 8;

    // files: not owned; must outlive this object.
    explicit StagingFolders(FileSystem& files) : m_files(files) {}

    // Returns the folder in which to create a copy that will be placed in `destination`, or in a
    // folder that will be created there: a private folder in `top` if that serves, otherwise the
    // destination itself.
    [[nodiscard]] std::shared_ptr<const Folder> Next(
        const std::shared_ptr<const Folder>& top, const std::shared_ptr<const Folder>& destination);
    // Removes the folders. Call it when no copy is left in them, and before the time of the top
    // folder is set.
    void Remove();

private:
    FileSystem& m_files;
    std::mutex m_mutex;  // of the following
    bool m_bUnable = false;
    std::vector<std::shared_ptr<const Folder>> m_folders;
    std::size_t m_nCopies = 0;
};

}  // namespace quorbit
