// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/folder_lock.h"

#include <fcntl.h>

#include <utility>

#include "platform/posix/file_io.h"

namespace quorbit {

namespace {

class PosixFolderLock final : public FolderLock {
public:
    explicit PosixFolderLock(UniqueFd folder) : m_folder(std::move(folder)) {}

private:
    UniqueFd m_folder;
};

}  // namespace

Result<std::unique_ptr<FolderLock>> LockFolder(const std::string& path)
{
    auto folder = OpenPath(path, O_RDONLY | O_DIRECTORY);
    if (!folder) {
        return folder.GetError();
    }
    // Without flock(2) support, writers are not serialised; see the header.
    (void)LockWaiting(folder->Get());
    return std::unique_ptr<FolderLock>(std::make_unique<PosixFolderLock>(std::move(*folder)));
}

}  // namespace quorbit
