// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/stop_signals.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/posix/unique_fd.h"

namespace quorbit {
namespace {

constexpr char kStop = 1;
constexpr char kEnd = 0;

std::atomic<int> g_nWriteEnd{-1};

// The write end does not block; a full pipe already contains enough signals. A handler must
// preserve errno, see signal-safety(7).
extern "C" void OnSignal(int)
{
    const int savedErrno = errno;
    (void)!::write(g_nWriteEnd.load(), &kStop, 1);
    errno = savedErrno;
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

// Passes signals through a pipe to a thread, since a signal handler may only make async-signal-safe
// calls.
class StopSignals::Catcher {
public:
    Catcher(UniqueFd readEnd, UniqueFd writeEnd, std::function<void()> onStop)
        : m_readEnd(std::move(readEnd)),
          m_writeEnd(std::move(writeEnd)),
          m_onStop(std::move(onStop)),
          m_thread([this] { Work(); })
    {
        g_nWriteEnd = m_writeEnd.Get();
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
            Catch(signal);
        }
    }
    ~Catcher()
    {
        g_nWriteEnd = -1;
        while (::write(m_writeEnd.Get(), &kEnd, 1) < 0 && errno == EAGAIN) {
            std::this_thread::yield();  // full; the thread is emptying it
        }
        m_thread.join();
    }
    Catcher(const Catcher&) = delete;
    Catcher& operator=(const Catcher&) = delete;

private:
    void Work() const
    {
        std::array<char, 64> bytes{};
        while (true) {
            const ssize_t count = ::read(m_readEnd.Get(), bytes.data(), bytes.size());
            if (count < 0 && errno == EINTR) {
                continue;
            }
            if (count <= 0) {
                return;
            }
            const auto end = bytes.begin() + count;
            if (std::find(bytes.begin(), end, kStop) != end) {
                m_onStop();
            }
            if (std::find(bytes.begin(), end, kEnd) != end) {
                return;
            }
        }
    }

    UniqueFd m_readEnd;
    UniqueFd m_writeEnd;
    std::function<void()> m_onStop;
    std::thread m_thread;  // last member: uses all of the above
};

StopSignals::StopSignals(std::function<void()> onStop)
{
    std::array<int, 2> ends{-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return;
    }
    UniqueFd readEnd(ends[0]);
    UniqueFd writeEnd(ends[1]);
    (void)::fcntl(writeEnd.Get(), F_SETFL, O_NONBLOCK);
    try {
        m_catcher =
            std::make_unique<Catcher>(std::move(readEnd), std::move(writeEnd), std::move(onStop));
    } catch (const std::system_error&) {
        return;  // the system has no free threads
    }
}

StopSignals::~StopSignals() = default;

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
        // The usual soft limit on Linux.
        return 1024;
    }
    const rlim_t before = limit.rlim_cur;
    limit.rlim_cur = std::max(before, std::min(limit.rlim_max, kEnough));
    (void)setrlimit(RLIMIT_NOFILE, &limit);
    return before;
}

}  // namespace quorbit
