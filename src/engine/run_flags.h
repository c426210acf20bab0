// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Process-wide flags that control the current run. Initially 0. Lock-free atomics, because buttons,
// signal handlers and the worker access them at any time (signal-safety(7)).

#pragma once

#include <atomic>

namespace quorbit {

extern std::atomic<int> g_bStopRun;       // stop at the next check; also set when the run has ended
extern std::atomic<int> g_bRunStarted;    // a run was started
extern std::atomic<int> g_bStopCounting;  // the user gave up counting; the total is unknown

}  // namespace quorbit
