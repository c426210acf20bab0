// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/errno_error.h"

#include <cerrno>
#include <cstring>

namespace quorbit {

namespace {

ErrorKind KindFromErrno(int code)
{
    switch (code) {
        case ENOENT:
            return ErrorKind::Missing;
        case EACCES:
        case EPERM:
        case EROFS:
            return ErrorKind::AccessDenied;
        case EEXIST:
            return ErrorKind::AlreadyExists;
        case ENOTDIR:
        case ELOOP:
            return ErrorKind::NotAFolder;
        case EISDIR:
            return ErrorKind::IsAFolder;
        case ENOTEMPTY:
            return ErrorKind::NotEmpty;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return ErrorKind::DiskFull;
        case EOPNOTSUPP:
        case ENOSYS:
        case ENOTTY:
            return ErrorKind::NotSupported;
        case ENAMETOOLONG:
            return ErrorKind::NameTooLong;
        case EMFILE:
        case ENFILE:
            return ErrorKind::TooManyOpen;
        case EBUSY:
        case EWOULDBLOCK:
            return ErrorKind::Busy;
        case EINVAL:
            return ErrorKind::Invalid;
        case ENOEXEC:
            return ErrorKind::NotAProgram;
        default:
            // Includes ESTALE: the server lost the file handle, but the item may still exist.
            return ErrorKind::Other;
    }
}

}  // namespace

Error ErrorFromErrno(int code)
{
    // Unlike strerror(3), strerrordesc_np(3) is thread-safe and not translated.
    return Error(KindFromErrno(code), strerrordesc_np(code), code);
}

}  // namespace quorbit
