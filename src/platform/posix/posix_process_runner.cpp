// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/posix_process_runner.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "platform/posix/file_io.h"
#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

// Everything that the child needs, prepared before the fork: between fork(2) and execv(3) only
// async-signal-safe calls are allowed (signal-safety(7)), so nothing may allocate.
struct Launch {
    std::vector<char*> arguments;  // terminated by null
    const char* folder = nullptr;  // null: the current folder
    rlim_t openFileLimit = 0;      // 0: unchanged
    int errorPipe = -1;            // receives the errno value of a failure; closed by execv(3)
};

void ResetSignals()
{
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    sigset_t none;
    ::sigemptyset(&none);
    for (int number = 1; number < NSIG; ++number) {
        ::sigaction(number, &standard, nullptr);  // fails e.g. for SIGKILL
    }
    ::pthread_sigmask(SIG_SETMASK, &none, nullptr);
}

bool EmptyStandardInput()
{
    // If standard input is closed, open(2) returns 0 and nothing is left to do. dup2(2) clears
    // close-on-exec.
    const int null = ::open("/dev/null", O_RDONLY);
    if (null <= 0) {
        return null == 0;
    }
    return ::dup2(null, STDIN_FILENO) == STDIN_FILENO && ::close(null) == 0;
}

void LimitOpenFiles(rlim_t soft)
{
    rlimit limit{};
    if (soft != 0 && ::getrlimit(RLIMIT_NOFILE, &limit) == 0) {
        limit.rlim_cur = soft < limit.rlim_max ? soft : limit.rlim_max;
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
}

[[noreturn]] void BecomeProgram(const Launch& launch)
{
    ::setsid();
    if ((launch.folder == nullptr || ::chdir(launch.folder) == 0) && EmptyStandardInput()) {
        LimitOpenFiles(launch.openFileLimit);
        ResetSignals();
        ::execv(launch.arguments[0], launch.arguments.data());
    }
    const int reason = errno;
    // If this write fails, the parent assumes that the program was started and then sees it end at
    // once.
    const ssize_t written = ::write(launch.errorPipe, &reason, sizeof(reason));
    ::_exit(written == sizeof(reason) ? 127 : 126);
}

// Keep signals blocked until the child has reset its dispositions, so that no handler of this
// process runs in the child. posix_spawn(3) would do all of this except the limit of open files.
pid_t Fork(const Launch& launch)
{
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t child = ::fork();
    if (child == 0) {
        BecomeProgram(launch);
    }
    const int reason = errno;
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    errno = reason;
    return child;
}

struct Pipe {
    UniqueFd read;
    UniqueFd write;  // above STDERR_FILENO, since the child replaces the standard descriptors
};

Result<Pipe> OpenPipe()
{
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        return LastError();
    }
    Pipe pipe{UniqueFd(ends[0]), UniqueFd(ends[1])};
    if (pipe.write.Get() <= STDERR_FILENO) {
        pipe.write = UniqueFd(::fcntl(pipe.write.Get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
        if (!pipe.write.IsOpen()) {
            return LastError();
        }
    }
    return pipe;
}

// An ignored SIGCHLD, which a parent may have left behind, would hide how the child ended
// (waitpid(2)).
void ReportEndOfChildren()
{
    struct sigaction action {};
    if (::sigaction(SIGCHLD, nullptr, &action) == 0 && action.sa_handler == SIG_IGN) {
        action.sa_handler = SIG_DFL;
        ::sigaction(SIGCHLD, &action, nullptr);
    }
}

std::string SignalName(int number)
{
    const char* name = ::sigabbrev_np(number);
    return name != nullptr ? std::string("SIG") + name : "signal " + std::to_string(number);
}

bool HasNul(std::string_view text)
{
    return text.find('\0') != std::string_view::npos;
}

}  // namespace

Result<ProgramEnd> PosixProcessRunner::RunAndWait(const std::vector<std::string>& arguments,
                                                  const std::string& folder)
{
    Launch launch;
    for (const std::string& argument : arguments) {
        if (HasNul(argument)) {
            return ErrorFromErrno(EINVAL);
        }
        // The cast is safe: execv(3) does not modify the arguments.
        launch.arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    if (arguments.empty() || HasNul(folder)) {
        return ErrorFromErrno(EINVAL);
    }
    launch.arguments.push_back(nullptr);
    launch.folder = folder.empty() ? nullptr : folder.c_str();
    launch.openFileLimit = static_cast<rlim_t>(m_nOpenFileLimit);

    auto pipe = OpenPipe();
    if (!pipe) {
        return pipe.GetError();
    }
    launch.errorPipe = pipe->write.Get();
    ReportEndOfChildren();
    pid_t child = -1;
    {
        // A signal that arrives now waits until it can reach the child.
        const std::lock_guard lock(m_mutex);
        child = Fork(launch);
        if (child < 0) {
            return LastError();
        }
        m_nChild = child;
    }
    pipe->write.Close();
    int reason = 0;
    // Blocks until execv(3) closes the pipe (read returns 0) or the child reports why it failed.
    const bool failed = RetryInterrupted([&] {
                            return ::read(pipe->read.Get(), &reason, sizeof(reason));
                        }) == sizeof(reason);
    const ProgramEnd end = WaitFor(child);
    return failed ? Result<ProgramEnd>(ErrorFromErrno(reason)) : end;
}

ProgramEnd PosixProcessRunner::WaitFor(pid_t child)
{
    // WNOWAIT: its number must not become that of another process while Signal() may use it.
    siginfo_t info{};
    (void)RetryInterrupted(
        [&] { return ::waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOWAIT); });
    const std::lock_guard lock(m_mutex);
    m_nChild = 0;
    int status = 0;
    if (RetryInterrupted([&] { return ::waitpid(child, &status, 0); }) != child) {
        return {};
    }
    return WIFSIGNALED(status) ? ProgramEnd{.signal = SignalName(WTERMSIG(status))}
                               : ProgramEnd{.status = WEXITSTATUS(status)};
}

void PosixProcessRunner::Signal(int number)
{
    const std::lock_guard lock(m_mutex);
    // Until the child has called setsid(2), there is no group with its number.
    if (m_nChild > 0 && ::kill(-m_nChild, number) != 0 && errno == ESRCH) {
        (void)::kill(m_nChild, number);
    }
}

void PosixProcessRunner::PassOn(StopSignal signal)
{
    switch (signal) {
        case StopSignal::Interrupt:
            return Signal(SIGINT);
        case StopSignal::Terminate:
            return Signal(SIGTERM);
        case StopSignal::HangUp:
            return Signal(SIGHUP);
    }
}

void PosixProcessRunner::Kill()
{
    Signal(SIGKILL);
}

bool PosixProcessRunner::IsExecutable(const std::string& path)
{
    struct stat details {};
    return !HasNul(path) && ::stat(path.c_str(), &details) == 0 && S_ISREG(details.st_mode) &&
           ::faccessat(AT_FDCWD, path.c_str(), X_OK, AT_EACCESS) == 0;
}

Status PosixProcessRunner::CanRead(const std::string& path)
{
    const auto file = OpenRegularFile(path);
    return file ? Status() : Status(file.GetError());
}

std::string PosixProcessRunner::FindProgram(const std::string& name)
{
    if (name.empty() || name.find('/') != std::string::npos) {
        return {};
    }
    const char* variable = std::getenv("PATH");
    std::string_view rest = variable != nullptr ? variable : "/usr/local/bin:/usr/bin:/bin";
    while (!rest.empty()) {
        const std::string_view folder = rest.substr(0, rest.find(':'));
        rest.remove_prefix(folder.size() < rest.size() ? folder.size() + 1 : rest.size());
        std::string path = std::string(folder) + '/' + name;
        if (folder.starts_with('/') && IsExecutable(path)) {
            return path;
        }
    }
    return {};
}

}  // namespace quorbit
