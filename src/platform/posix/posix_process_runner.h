// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs programs as child processes with fork(2) and execv(3).

#pragma once

#include <sys/types.h>

#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

#include "platform/process_runner.h"

namespace quorbit {

// A started program has a session of its own, so that reading from the terminal fails instead of
// stopping it for ever (setsid(2)), and is the leader of its process group. It has an empty
// standard input, the standard output and error of this process, no other open files, no blocked
// signals, and default actions for all signals. Any thread.
class PosixProcessRunner : public ProcessRunner {
public:
    // openFileLimit: soft limit of open files for started programs, since programs that use
    // select(2) do not expect the high limit of this process. 0 keeps the current limit.
    explicit PosixProcessRunner(std::uint64_t openFileLimit) : m_nOpenFileLimit(openFileLimit) {}

    // arguments[0] is a path, relative to the folder unless absolute. An executable file without a
    // known format or "#!" line is an error; it is not passed to a shell. An empty folder means the
    // current one. The error does not distinguish between folder and program.
    Result<ProgramEnd> RunAndWait(const std::vector<std::string>& arguments,
                                  const std::string& folder) override;
    void PassOn(StopSignal signal) override;
    void Kill() override;
    bool IsExecutable(const std::string& path) override;
    Status CanRead(const std::string& path) override;
    // Skips empty and relative entries of PATH.
    std::string FindProgram(const std::string& name) override;

private:
    [[nodiscard]] ProgramEnd WaitFor(pid_t child);
    void Signal(int number);

    std::uint64_t m_nOpenFileLimit;
    std::mutex m_mutex;
    pid_t m_nChild = 0;  // guarded; a process that has not been waited for, or 0
};

}  // namespace quorbit
