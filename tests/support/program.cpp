// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/program.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>

namespace quorbit {
namespace {

using Clock = std::chrono::steady_clock;

// The environment of this process with the given values in the place of its own.
std::vector<std::string> MergedEnvironment(const std::map<std::string, std::string>& values)
{
    std::vector<std::string> merged;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string text = *entry;
        if (!values.contains(text.substr(0, text.find('='))))
            merged.push_back(text);
    }
    for (const auto& [name, value] : values)
        merged.push_back(name + '=' + value);
    return merged;
}

// For calls of the system that take a null-terminated array. Valid as long as the strings are.
std::vector<char*> Pointers(std::vector<std::string>& strings)
{
    std::vector<char*> pointers;
    std::ranges::transform(strings, std::back_inserter(pointers),
                           [](std::string& text) { return text.data(); });
    pointers.push_back(nullptr);
    return pointers;
}

void CloseFd(int& fd)
{
    if (fd >= 0)
        close(fd);
    fd = -1;
}

// Appends what there is to read; closes the descriptor at its end.
void Drain(int& fd, std::string& text)
{
    std::array<char, 65536> buffer;
    const ssize_t got = read(fd, buffer.data(), buffer.size());
    if (got > 0)
        text.append(buffer.data(), static_cast<std::size_t>(got));
    else if (got == 0 || errno != EINTR)
        CloseFd(fd);
}

}  // namespace

Program::Program(const ProgramCall& call) : m_deadline(Clock::now() + call.timeout)
{
    if (!Start(call))
        m_result.err = std::string("not started: ") + strerror(errno);
}

Program::~Program()
{
    KillAll();
    if (m_pid > 0)
        waitpid(m_pid, nullptr, 0);
    CloseFd(m_fdOut);
    CloseFd(m_fdErr);
}

bool Program::Start(const ProgramCall& call)
{
    std::array<int, 2> out{-1, -1};
    std::array<int, 2> err{-1, -1};
    if (pipe2(out.data(), O_CLOEXEC) != 0 || pipe2(err.data(), O_CLOEXEC) != 0)
        return false;
    m_fdOut = out[0];
    m_fdErr = err[0];

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, err[1], STDERR_FILENO);
    if (!call.folder.empty())
        posix_spawn_file_actions_addchdir_np(&actions, call.folder.c_str());
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);

    std::vector<std::string> arguments = call.arguments;
    std::vector<std::string> environment = MergedEnvironment(call.environment);
    const int failure = posix_spawn(&m_pid, arguments.at(0).c_str(), &actions, &attributes,
                                    Pointers(arguments).data(), Pointers(environment).data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    CloseFd(out[1]);
    CloseFd(err[1]);
    if (failure != 0) {
        m_pid = -1;
        errno = failure;
        return false;
    }
    m_group = m_pid;
    return true;
}

void Program::Signal(int number) const
{
    if (m_pid > 0)
        kill(m_pid, number);
}

ProgramResult Program::Wait()
{
    bool ended = m_pid <= 0;
    bool closed = false;
    while (!ended || !closed) {
        if (Clock::now() >= m_deadline && !m_result.timedOut) {
            m_result.timedOut = true;
            KillAll();
        }
        closed = ReadOutput(std::chrono::milliseconds(10));
        ended = ended || HasEnded();
    }
    m_group = -1;  // nothing of it is left that holds its output, and the number may be given anew
    return std::move(m_result);
}

// True once both outputs are closed.
bool Program::ReadOutput(std::chrono::milliseconds atMost)
{
    // poll(2) passes over the negative descriptors of closed outputs.
    std::array<pollfd, 2> fds{pollfd{m_fdOut, POLLIN, 0}, pollfd{m_fdErr, POLLIN, 0}};
    poll(fds.data(), fds.size(), static_cast<int>(atMost.count()));
    if (fds[0].revents != 0)
        Drain(m_fdOut, m_result.out);
    if (fds[1].revents != 0)
        Drain(m_fdErr, m_result.err);
    return m_fdOut < 0 && m_fdErr < 0;
}

bool Program::HasEnded()
{
    int status = 0;
    if (waitpid(m_pid, &status, WNOHANG) != m_pid)
        return false;
    m_pid = -1;
    if (WIFSIGNALED(status))
        m_result.endedBySignal = WTERMSIG(status);
    else
        m_result.exitCode = WEXITSTATUS(status);
    return true;
}

// The group may hold children of a program that has ended itself.
void Program::KillAll()
{
    if (m_group > 0)
        kill(-m_group, SIGKILL);
}

ProgramResult RunProgram(const ProgramCall& call)
{
    Program program(call);
    return program.Wait();
}

}  // namespace quorbit
