// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/run_flags.h"

namespace quorbit {

std::atomic<int> g_bStopRun{0};
std::atomic<int> g_bRunStarted{0};
std::atomic<int> g_bStopCounting{0};

static_assert(std::atomic<int>::is_always_lock_free, "a signal handler sets g_bStopRun");

}  // namespace quorbit
