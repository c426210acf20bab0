// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/coarse_clock.h"

#include <time.h>

namespace quorbit {

std::chrono::steady_clock::time_point CoarseNow()
{
    timespec now = {};
    (void)::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    const auto since = std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
    return std::chrono::steady_clock::time_point(since);
}

std::chrono::nanoseconds ThreadTime()
{
    timespec used = {};
    (void)::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    return std::chrono::seconds(used.tv_sec) + std::chrono::nanoseconds(used.tv_nsec);
}

}  // namespace quorbit
