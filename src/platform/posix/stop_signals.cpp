// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/stop_signals.h"

#include <sys/resource.h>

#include <algorithm>
#include <csignal>

namespace quorbit {
namespace {

std::atomic<std::atomic<int>*> g_pStopFlag{nullptr};

extern "C" void OnStopSignal(int)
{
    if (std::atomic<int>* flag = g_pStopFlag.load()) {
        flag->store(1);
    }
}

}  // namespace

void StopOnSignals(std::atomic<int>& flag)
{
    g_pStopFlag = &flag;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction previous {};
        if (sigaction(signal, nullptr, &previous) == 0 && previous.sa_handler == SIG_IGN) {
            continue;
        }
        struct sigaction action {};
        action.sa_handler = OnStopSignal;
        action.sa_flags = SA_RESTART;
        sigemptyset(&action.sa_mask);
        (void)sigaction(signal, &action, nullptr);
    }
}

void IgnoreWriteSignals()
{
    (void)std::signal(SIGPIPE, SIG_IGN);
    (void)std::signal(SIGXFSZ, SIG_IGN);
}

std::uint64_t RaiseOpenFileLimit()
{
    constexpr rlim_t kEnough = 65536;
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0) {
        return 1024;
    }
    const rlim_t before = limit.rlim_cur;
    limit.rlim_cur = std::max(before, std::min(limit.rlim_max, kEnough));
    (void)setrlimit(RLIMIT_NOFILE, &limit);
    return before;
}

}  // namespace quorbit
