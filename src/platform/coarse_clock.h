// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A cheap clock for frequent checks that need no precision.

#pragma once

#include <chrono>

namespace quorbit {

// Returns the steady clock's time as of the last kernel tick, so it is up to about 10 ms old. Much
// cheaper than an exact reading: CLOCK_MONOTONIC_COARSE, clock_gettime(2). Any thread.
[[nodiscard]] std::chrono::steady_clock::time_point CoarseNow();

// Returns the time for which the calling thread has used a processor: CLOCK_THREAD_CPUTIME_ID,
// clock_gettime(2). Any thread.
[[nodiscard]] std::chrono::nanoseconds ThreadTime();

}  // namespace quorbit
