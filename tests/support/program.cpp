// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/program.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <thread>

namespace quorbit {
namespace {

// Runs in the child and does not return.
[[noreturn]] void Become(const ProgramCall& call, int out, int err)
{
    setpgid(0, 0);
    dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
    dup2(out, STDOUT_FILENO);
    dup2(err, STDERR_FILENO);
    close_range(STDERR_FILENO + 1, ~0U, 0);
    for (const auto& [name, value] : call.environment) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    std::vector<char*> arguments;
    for (const std::string& argument : call.arguments) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    if (call.folder.empty() || chdir(call.folder.c_str()) == 0) {
        execv(arguments[0], arguments.data());
    }
    perror(arguments[0]);
    _exit(127);
}

std::string ContentFromStart(std::FILE* file)
{
    std::rewind(file);
    std::string content;
    for (int c = 0; (c = std::fgetc(file)) != EOF;) {
        content += static_cast<char>(c);
    }
    return content;
}

}  // namespace

Program::Program(const ProgramCall& call)
    : m_deadline(std::chrono::steady_clock::now() + call.timeout), m_pid(fork())
{
    if (m_pid == 0) {
        Become(call, fileno(m_out.get()), fileno(m_err.get()));
    }
    if (m_pid < 0) {
        std::abort();
    }
    setpgid(m_pid, m_pid);  // also in the child, so that the group exists whichever runs first
}

Program::~Program()
{
    if (!m_bWaitedFor) {
        kill(-m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }
}

void Program::Signal(int number) const
{
    kill(m_pid, number);
}

ProgramResult Program::Wait()
{
    ProgramResult result;
    int status = 0;
    while (waitpid(m_pid, &status, WNOHANG) == 0) {
        const auto now = std::chrono::steady_clock::now();
        if (now >= m_deadline && !result.timedOut) {
            result.timedOut = true;
            kill(-m_pid, SIGKILL);
        }
        std::this_thread::sleep_until(now + std::chrono::milliseconds(2));
    }
    m_bWaitedFor = true;
    result.endedBySignal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    result.exitCode = WIFSIGNALED(status) ? -1 : WEXITSTATUS(status);
    result.out = ContentFromStart(m_out.get());
    result.err = ContentFromStart(m_err.get());
    return result;
}

ProgramResult RunProgram(const ProgramCall& call)
{
    return Program(call).Wait();
}

}  // namespace quorbit
