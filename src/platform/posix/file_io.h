// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Opens, writes and locks Quorbit's own files. Any thread.

#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

#include "platform/error.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

// Calls open(2) with O_CLOEXEC and retries on EINTR. Rejects a path with a NUL byte (EINVAL)
// instead of truncating it.
Result<UniqueFd> OpenPath(const std::string& path, int flags, mode_t mode = 0);

// Opens a regular file for reading. Rejects FIFOs and devices without blocking on their other end.
Result<UniqueFd> OpenRegularFile(const std::string& path);

// Writes all bytes, at the current file offset.
Status WriteAll(int fd, std::string_view bytes);

enum class FileLock {
    Held,    // held until the descriptor is closed, even by a kill
    Busy,    // held by another open file description
    Unable,  // this file system does not support locks
};
// Exclusive flock(2) on an open file or folder. LockNow does not block; LockWaiting never returns
// Busy.
[[nodiscard]] FileLock LockNow(int fd);
[[nodiscard]] FileLock LockWaiting(int fd);

}  // namespace quorbit
