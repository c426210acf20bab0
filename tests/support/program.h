// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Starts a program as a shell would and returns its output and exit status.

#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace quorbit {

struct ProgramCall {
    std::vector<std::string> arguments{};              // arguments[0] is the path of the program
    std::map<std::string, std::string> environment{};  // added to the test's own
    std::string folder{};                              // working folder; empty: the test's own
    std::chrono::milliseconds timeout{60'000};         // then its process group is killed
};

struct ProgramResult {
    int exitCode = -1;      // -1 if killed by a signal; 127 if it could not be started
    int endedBySignal = 0;  // 0 if it exited
    bool timedOut = false;
    std::string out;  // standard output
    std::string err;  // standard error
};

// A running program in its own process group, with /dev/null as standard input. The destructor
// kills the group unless Wait() was called.
class Program {
public:
    explicit Program(const ProgramCall& call);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Sends a signal to the program only, not to its process group.
    void Signal(int number) const;
    // Waits for the program to end; kills its process group at the timeout. Call once.
    [[nodiscard]] ProgramResult Wait();

private:
    using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

    std::chrono::steady_clock::time_point m_deadline;
    File m_out{std::tmpfile(), std::fclose};
    File m_err{std::tmpfile(), std::fclose};
    pid_t m_pid;  // also the id of its process group
    bool m_bWaitedFor = false;
};

// Starts a program and waits for it to end.
[[nodiscard]] ProgramResult RunProgram(const ProgramCall& call);

}  // namespace quorbit
