// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/file_io.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

#include "platform/posix/system_call.h"

namespace quorbit {

Result<UniqueFd> OpenPath(const std::string& path, int flags, mode_t mode)
{
    if (path.find('\0') != std::string::npos) {
        return ErrorFromErrno(EINVAL);
    }
    UniqueFd file(RetryInterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
    if (!file.IsOpen()) {
        return LastError();
    }
    return file;
}

Result<UniqueFd> OpenRegularFile(const std::string& path)
{
    auto file = OpenPath(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    if (!file) {
        return file;
    }
    struct stat details {};
    if (::fstat(file->Get(), &details) != 0) {
        return LastError();
    }
    if (S_ISDIR(details.st_mode)) {
        return ErrorFromErrno(EISDIR);
    }
    if (!S_ISREG(details.st_mode)) {
        return Error(ErrorKind::NotSupported, "Not a regular file");
    }
    return file;
}

Status WriteAll(int fd, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written =
            RetryInterrupted([&] { return ::write(fd, bytes.data(), bytes.size()); });
        if (written <= 0) {
            return written < 0 ? LastError() : ErrorFromErrno(EIO);
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

namespace {

FileLock Lock(int fd, int operation)
{
    if (RetryInterrupted([&] { return ::flock(fd, operation); }) == 0) {
        return FileLock::Held;
    }
    return errno == EWOULDBLOCK ? FileLock::Busy : FileLock::Unable;
}

}  // namespace

FileLock LockNow(int fd)
{
    return Lock(fd, LOCK_EX | LOCK_NB);
}

FileLock LockWaiting(int fd)
{
    return Lock(fd, LOCK_EX);
}

}  // namespace quorbit
