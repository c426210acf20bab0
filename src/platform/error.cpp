// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/error.h"

namespace quorbit {

namespace {

// The texts of POSIX systems, so that the log reads the same whether the system or Quorbit reports
// the error.
const char* UsualText(ErrorKind kind)
{
    switch (kind) {
        case ErrorKind::Missing:
            return "No such file or directory";
        case ErrorKind::AccessDenied:
            return "Permission denied";
        case ErrorKind::AlreadyExists:
            return "File exists";
        case ErrorKind::NotAFolder:
            return "Not a directory";
        case ErrorKind::IsAFolder:
            return "Is a directory";
        case ErrorKind::NotEmpty:
            return "Directory not empty";
        case ErrorKind::DiskFull:
            return "No space left on device";
        case ErrorKind::SameFile:
            return "Source and destination are the same file";
        case ErrorKind::NotSupported:
            return "Operation not supported";
        case ErrorKind::ItemNotSupported:
            return "The file system of the destination cannot hold such an item";
        case ErrorKind::NameTooLong:
            return "File name too long";
        case ErrorKind::TooManyOpen:
            return "Too many open files";
        case ErrorKind::Protected:
            return "Operation not permitted";
        case ErrorKind::Changed:
            return "The item has been replaced in the meantime";
        case ErrorKind::Busy:
            return "Device or resource busy";
        case ErrorKind::Invalid:
            return "Invalid argument";
        case ErrorKind::NotAProgram:
            return "Exec format error";
        case ErrorKind::Other:
            break;
    }
    return "Input/output error";
}

}  // namespace

Error::Error(ErrorKind kind) : Error(kind, UsualText(kind)) {}

std::string Error::Text() const
{
    return m_pszText != nullptr ? m_pszText : "Unknown error " + std::to_string(m_nCode);
}

}  // namespace quorbit
