// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Enumerates a folder on a disk. Opens it at the first Next, so that creating an enumerator never
// blocks.

#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <stop_token>
#include <string>

#include "platform/file_system.h"
#include "platform/posix/posix_file_system.h"
#include "platform/shell/shell_context.h"
#include "platform/shell/shell_folder.h"

namespace quorbit {

class FileEnumerator final : public ShellEnumerator {
public:
    // path: absolute path of the folder, native or of a mapped drive. flags: SHCONTF_.
    FileEnumerator(std::shared_ptr<const ShellContext> context, std::string path,
                   std::uint32_t flags, std::stop_token stop);

    Result<std::optional<ItemIdList>> Next() override;
    Result<FindData> ReadDetails() override;

private:
    Status Open();
    [[nodiscard]] bool IsMountPoint() const;
    [[nodiscard]] bool FindKind();
    [[nodiscard]] bool IsWanted();
    [[nodiscard]] bool IsHidden();
    [[nodiscard]] bool MayHaveSubfolder() const;
    [[nodiscard]] ItemIdList MakeId() const;

    std::shared_ptr<const ShellContext> m_context;
    std::string m_strPath;
    std::uint32_t m_dwFlags;
    std::stop_token m_stop;

    PosixFileSystem m_files;
    std::unique_ptr<Folder> m_folder;
    std::unique_ptr<Listing> m_listing;  // null until the first Next
    std::set<std::string> m_mountNames;  // names in this folder that are mount points
    bool m_bLinksTellSubfolders = false;
    FindData m_item;  // the item that Next returned last
};

}  // namespace quorbit
