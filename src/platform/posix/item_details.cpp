// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/item_details.h"

#include <fcntl.h>
#include <sys/sysmacros.h>

#include "platform/posix/system_call.h"

namespace quorbit {

ItemKind KindFromMode(mode_t mode)
{
    switch (mode & S_IFMT) {
        case S_IFREG:
            return ItemKind::File;
        case S_IFDIR:
            return ItemKind::Folder;
        case S_IFLNK:
            return ItemKind::Link;
        default:
            return ItemKind::Special;
    }
}

void FillDetails(const struct stat& details, FindData& item)
{
    item.kind = KindFromMode(details.st_mode);
    item.size = static_cast<std::uint64_t>(details.st_size);
    item.modified = details.st_mtim.tv_sec;
    item.modifiedNsec = static_cast<std::uint32_t>(details.st_mtim.tv_nsec);
    item.device = details.st_dev;
    item.inode = details.st_ino;
    item.links = details.st_nlink;
}

Status ReadDetailsAt(int folder, FindData& item)
{
    struct statx details = {};
    const int done = RetryInterrupted([&] {
        return ::statx(folder, item.name.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT,
                       STATX_TYPE | STATX_SIZE | STATX_MTIME | STATX_INO | STATX_NLINK, &details);
    });
    if (done != 0) {
        return LastError();
    }
    item.kind = KindFromMode(details.stx_mode);
    item.size = details.stx_size;
    item.modified = details.stx_mtime.tv_sec;
    item.modifiedNsec = details.stx_mtime.tv_nsec;
    item.device = makedev(details.stx_dev_major, details.stx_dev_minor);
    item.inode = details.stx_ino;
    item.links = details.stx_nlink;
    return {};
}

Result<struct stat> StatAt(int folder, const std::string& name)
{
    struct stat details = {};
    const int done = RetryInterrupted([&] {
        return ::fstatat(folder, name.c_str(), &details, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT);
    });
    if (done != 0) {
        return LastError();
    }
    return details;
}

}  // namespace quorbit
