// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs programs as child processes with fork(2) and execv(3).

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/process_runner.h"

namespace quorbit {

// A started program has its own process group, an empty standard input, the standard output and
// error of this process, no other open files, no blocked signals, and default actions for all
// signals. Any thread.
class PosixProcessRunner : public ProcessRunner {
public:
    // openFileLimit: soft limit of open files for started programs, since programs that use
    // select(2) do not expect the high limit of this process. 0 keeps the current limit.
    explicit PosixProcessRunner(std::uint64_t openFileLimit) : m_nOpenFileLimit(openFileLimit) {}

    // arguments[0] is a path, relative to the folder unless absolute. An executable file without a
    // known format or "#!" line is an error; it is not passed to a shell. An empty folder means the
    // current one. The error does not distinguish between folder and program.
    Status RunAndWait(const std::vector<std::string>& arguments,
                      const std::string& folder) override;
    bool IsExecutable(const std::string& path) override;
    Status CanRead(const std::string& path) override;
    // Skips empty and relative entries of PATH.
    std::string FindProgram(const std::string& name) override;

private:
    std::uint64_t m_nOpenFileLimit;
};

}  // namespace quorbit
