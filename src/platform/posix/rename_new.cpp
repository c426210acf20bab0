// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/rename_new.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

#include "platform/posix/item_details.h"
#include "platform/posix/system_call.h"

namespace quorbit {

Status RenameNew(int folder, const std::string& name, const std::string& newName)
{
    if (::renameat2(folder, name.c_str(), folder, newName.c_str(), RENAME_NOREPLACE) == 0) {
        return {};
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return LastError();
    }
    // The file system does not support RENAME_NOREPLACE. Checking first leaves a race, but nothing
    // better is available.
    const Result<struct stat> taken = StatAt(folder, newName);
    if (taken) {
        return ErrorFromErrno(EEXIST);
    }
    if (taken.GetError().Kind() != ErrorKind::Missing) {
        return taken.GetError();
    }
    return ::renameat(folder, name.c_str(), folder, newName.c_str()) == 0 ? Status() : LastError();
}

}  // namespace quorbit
