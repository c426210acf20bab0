// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs a program the way a shell would and tells how it ended.

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
    std::map<std::string, std::string> environment{};  // on top of that of the test
    std::string folder{};                              // working folder; empty for that of the test
    std::chrono::milliseconds timeout{60'000};         // then it is killed, with what it started
};

struct ProgramResult {
    int exitCode = -1;      // -1 if it was ended by a signal; 127 if it could not be started
    int endedBySignal = 0;  // 0 if it ended by itself
    bool timedOut = false;
    std::string out;  // standard output
    std::string err;  // standard error
};

// A program that has been started, with an empty standard input, in a process group of its own.
// Kills it and what it started, unless it has been waited for.
class Program {
public:
    explicit Program(const ProgramCall& call);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Sends a signal to the program, not to what it started.
    void Signal(int number) const;
    // Returns when the program has ended, or when the time of the call is over. Call it once.
    [[nodiscard]] ProgramResult Wait();

private:
    using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

    std::chrono::steady_clock::time_point m_deadline;
    File m_out{std::tmpfile(), std::fclose};
    File m_err{std::tmpfile(), std::fclose};
    pid_t m_pid;  // of its group, too; that stands until it has been waited for
    bool m_bWaitedFor = false;
};

// Starts a program and waits for its end.
[[nodiscard]] ProgramResult RunProgram(const ProgramCall& call);

}  // namespace quorbit
