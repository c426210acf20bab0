// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/error.h"

#include <cerrno>
#include <cstring>

namespace quorbit {

std::string Error::Text() const
{
    if (m_pszText != nullptr) {
        return m_pszText;
    }
    // Not translated and without shared state, unlike strerror(3): the log reads the same
    // everywhere.
    const char* text = strerrordesc_np(m_nCode);
    return text != nullptr ? text : "Unknown error " + std::to_string(m_nCode);
}

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
        default:
            // ESTALE too: the server has lost sight of the item, which does not say that it is
            // gone.
            return ErrorKind::Other;
    }
}

}  // namespace

Error ErrorFromErrno(int code)
{
    return Error(KindFromErrno(code), code);
}

}  // namespace quorbit
