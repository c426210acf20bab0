// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Programs as processes of the system.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/process_runner.h"

namespace quorbit {

// A started program has a process group of its own, an empty standard input, the standard output
// and error of this process, no other open file, no blocked signal, and every signal at its
// default. Any thread.
class PosixProcessRunner : public ProcessRunner {
public:
    // openFileLimit: the soft limit of open files that a started program gets, since programs that
    // use select(2) do not expect the high one of this process. 0 leaves it alone.
    explicit PosixProcessRunner(std::uint64_t openFileLimit) : m_nOpenFileLimit(openFileLimit) {}

    // arguments[0] is a path; a relative one counts from the folder. A file that is neither a
    // program nor names its interpreter in a "#!" line is an error, it is not handed to a shell. An
    // empty folder stands for the current one. The text of an error does not say whether the folder
    // or the program is at fault.
    Status RunAndWait(const std::vector<std::string>& arguments,
                      const std::string& folder) override;
    bool IsExecutable(const std::string& path) override;
    Status CanRead(const std::string& path) override;
    // Empty and relative parts of the search path are passed over.
    std::string FindProgram(const std::string& name) override;

private:
    std::uint64_t m_nOpenFileLimit;
};

}  // namespace quorbit
