// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The time for what is asked at every file and need not be exact.

#pragma once

#include <chrono>

namespace quorbit {

// Now on the steady clock, as of the last tick of the system: up to about 10 ms old. Costs a
// fraction of an exact reading; CLOCK_MONOTONIC_COARSE, clock_gettime(2). Any thread.
[[nodiscard]] std::chrono::steady_clock::time_point CoarseNow();

}  // namespace quorbit
