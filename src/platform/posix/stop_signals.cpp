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
#include <cstddef>
#include <span>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/posix/unique_fd.h"

namespace quorbit {
namespace {

constexpr char kEnd = 0;  // no signal has this number

std::atomic<int> g_nWriteEnd{-1};

// The write end does not block; a full pipe already contains enough signals. A handler must
// preserve errno, see signal-safety(7).
extern "C" void OnSignal(int number)
{
    const int savedErrno = errno;
    const char byte = static_cast<char>(number);
    (void)!::write(g_nWriteEnd.load(), &byte, 1);
    errno = savedErrno;
}

StopSignal FromNumber(char number)
{
    switch (number) {
        case SIGINT:
            return StopSignal::Interrupt;
        case SIGHUP:
            return StopSignal::HangUp;
        default:
            return StopSignal::Terminate;
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

const char* NameOf(StopSignal signal)
{
    switch (signal) {
        case StopSignal::Interrupt:
            return "SIGINT";
        case StopSignal::HangUp:
            return "SIGHUP";
        case StopSignal::Terminate:
            break;
    }
    return "SIGTERM";
}

// Passes signals through a pipe to a thread, since a signal handler may only make async-signal-safe
// calls.
class StopSignals::Catcher {
public:
    Catcher(UniqueFd readEnd, UniqueFd writeEnd, std::function<void(StopSignal)> onStop)
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
            for (const char byte : std::span(bytes).first(static_cast<std::size_t>(count))) {
                if (byte == kEnd) {
                    return;
                }
                m_onStop(FromNumber(byte));
            }
        }
    }

    UniqueFd m_readEnd;
    UniqueFd m_writeEnd;
    std::function<void(StopSignal)> m_onStop;
    std::thread m_thread;  // last member: uses all of the above
};

StopSignals::StopSignals(std::function<void(StopSignal)> onStop)
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

std::uint64_t OpenFileLimit()
{
    rlimit limit{};
    // The usual soft limit on Linux if it is unknown.
    return getrlimit(RLIMIT_NOFILE, &limit) == 0 ? limit.rlim_cur : 1024;
}

std::uint64_t RaiseOpenFileLimit()
{
    constexpr rlim_t kEnough = 65536;
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0) {
        return OpenFileLimit();
    }
    const rlim_t before = limit.rlim_cur;
    limit.rlim_cur = std::max(before, std::min(limit.rlim_max, kEnough));
    (void)setrlimit(RLIMIT_NOFILE, &limit);
    return before;
}

}  // namespace quorbit
