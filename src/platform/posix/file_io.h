// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Opening, writing and locking files of our own.

#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

#include "platform/error.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

// open(2), closed on exec, tried again after a signal. A path with a NUL byte names no file and is
// refused, never cut.
Result<UniqueFd> OpenPath(const std::string& path, int flags, mode_t mode = 0);

// Opens a regular file for reading. A FIFO or a device is refused without waiting for its other
// end.
Result<UniqueFd> OpenRegularFile(const std::string& path);

// Writes all of the bytes.
Status WriteAll(int fd, std::string_view bytes);

enum class FileLock {
    Held,    // ours until the descriptor is closed, also by a kill
    Busy,    // held by somebody else
    Unable,  // this file system has no locks
};
// flock(2) on an open file or folder, exclusive.
[[nodiscard]] FileLock LockNow(int fd);
[[nodiscard]] FileLock LockWaiting(int fd);

}  // namespace quorbit
