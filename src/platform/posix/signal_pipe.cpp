// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/signal_pipe.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>

#include "platform/posix/system_call.h"

namespace quorbit {
namespace {

std::atomic<int> g_nWriteEnd{-1};

// A pipe that is full holds signals enough.
extern "C" void OnSignal(int)
{
    const int savedErrno = errno;
    const char byte = 1;
    if (::write(g_nWriteEnd.load(), &byte, 1) < 0) {
        errno = savedErrno;
    }
}

void Catch(int signal)
{
    struct sigaction previous {};
    if (::sigaction(signal, nullptr, &previous) == 0 && previous.sa_handler == SIG_IGN) {
        return;
    }
    struct sigaction action {};
    action.sa_handler = OnSignal;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    (void)::sigaction(signal, &action, nullptr);
}

}  // namespace

Result<UniqueFd> CatchStopSignals()
{
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        return LastError();
    }
    g_nWriteEnd = ends[1];
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        Catch(signal);
    }
    return UniqueFd(ends[0]);
}

}  // namespace quorbit
