// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The three words that steer a run from outside. Zero when the program starts. Atomics, so that a
// button, a signal handler and the worker may touch them at any time; lock-free, as a signal
// handler demands.

#pragma once

#include <atomic>

namespace quorbit {

extern std::atomic<int>
    g_bStopRun;  // stop at the next test; at the end of a run also "the run is over"
extern std::atomic<int> g_bRunStarted;    // a run was started
extern std::atomic<int> g_bStopCounting;  // the count was given up: no total exists

}  // namespace quorbit
