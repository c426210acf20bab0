// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Private folders at the destination, for everything that has a temporary name. A killed run leaves
// nothing elsewhere, so the next one need not search all folders.
//
// Where copies have a name from the start, lanes create them in several folders in turn: creating a
// file locks its folder until the file system has answered, and renaming locks both folders. Any
// thread.

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
    // Returns a private folder for temporary names, or null if none serves for the destination.
    [[nodiscard]] const Folder* ForNames(const std::shared_ptr<const Folder>& top,
                                         const Folder& destination);
    // Removes the folders. Call it when no copy is left in them, and before the time of the top
    // folder is set.
    void Remove();

private:
    [[nodiscard]] std::shared_ptr<const Folder> Take(const Folder& top, std::size_t turn);

    FileSystem& m_files;
    std::mutex m_mutex;  // of the following
    bool m_bUnable = false;
    std::vector<std::shared_ptr<const Folder>> m_folders;
    std::size_t m_nCopies = 0;
};

}  // namespace quorbit
