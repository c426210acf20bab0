// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs a program the way a shell would and tells how it ended.

#pragma once

#include <sys/types.h>

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace quorbit {

struct ProgramCall {
    std::vector<std::string> arguments{};              // arguments[0] is the path of the program
    std::map<std::string, std::string> environment{};  // on top of that of the test
    std::string folder{};                              // working folder; empty for that of the test
    std::chrono::milliseconds timeout{60'000};         // then it is killed, with what it started
};

struct ProgramResult {
    int exitCode = -1;      // -1 if it was ended by a signal or could not be started
    int endedBySignal = 0;  // 0 if it ended by itself
    bool timedOut = false;
    std::string out;  // standard output
    std::string err;  // standard error; the reason if it could not be started
};

// A program that has been started, with an empty standard input, in a process group of its own.
// Kills what is left of it when it goes.
class Program {
public:
    explicit Program(const ProgramCall& call);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Sends a signal to the program, not to what it started.
    void Signal(int number) const;
    // Collects the output and returns when the program has ended and nobody holds its output any
    // more, or when the time of the call is over. Call it once.
    [[nodiscard]] ProgramResult Wait();

private:
    [[nodiscard]] bool Start(const ProgramCall& call);
    [[nodiscard]] bool ReadOutput(std::chrono::milliseconds atMost);
    [[nodiscard]] bool HasEnded();
    void KillAll();

    std::chrono::steady_clock::time_point m_deadline;
    pid_t m_pid = -1;  // -1 once it has been waited for
    pid_t m_group = -1;
    int m_fdOut = -1;  // -1 at its end
    int m_fdErr = -1;
    ProgramResult m_result;
};

// Starts a program and waits for its end.
[[nodiscard]] ProgramResult RunProgram(const ProgramCall& call);

}  // namespace quorbit
