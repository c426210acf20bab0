// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Small helpers around system calls.

#pragma once

#include <cerrno>

#include "platform/posix/errno_error.h"

namespace quorbit {

// Repeats a call that returns -1 for as long as a signal interrupts it. Not for close(2).
template <class Call>
auto RetryInterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

// The error of the call that has just failed.
[[nodiscard]] inline Error LastError()
{
    return ErrorFromErrno(errno);
}

}  // namespace quorbit
