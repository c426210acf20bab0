// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Helpers for system calls.

#pragma once

#include <cerrno>

#include "platform/posix/errno_error.h"

namespace quorbit {

// Retries a call that fails with EINTR. Not for close(2): on Linux the descriptor is closed even on
// EINTR, so a retry could close another thread's file.
template <class Call>
auto RetryInterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

// Returns the error of the system call that just failed, from errno.
[[nodiscard]] inline Error LastError()
{
    return ErrorFromErrno(errno);
}

}  // namespace quorbit
