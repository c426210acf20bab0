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

Status RenameNew(const NamedItem& from, const NamedItem& to)
{
    if (::renameat2(from.folder, from.name.c_str(), to.folder, to.name.c_str(), RENAME_NOREPLACE) ==
        0) {
        return {};
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return LastError();
    }
    // The file system does not support RENAME_NOREPLACE. Checking first leaves a race, but nothing
    // better is available.
    const Result<struct stat> taken = StatAt(to.folder, to.name);
    if (taken) {
        return ErrorFromErrno(EEXIST);
    }
    if (taken.GetError().Kind() != ErrorKind::Missing) {
        return taken.GetError();
    }
    return ::renameat(from.folder, from.name.c_str(), to.folder, to.name.c_str()) == 0
               ? Status()
               : LastError();
}

Status ExchangeNames(const NamedItem& one, const NamedItem& other)
{
    if (::renameat2(one.folder, one.name.c_str(), other.folder, other.name.c_str(),
                    RENAME_EXCHANGE) == 0) {
        return {};
    }
    const bool cannot = errno == EINVAL || errno == ENOSYS;
    return cannot ? Error(ErrorKind::NotSupported) : LastError();
}

}  // namespace quorbit
