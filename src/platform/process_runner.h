// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Starts a program and waits for it. An interface, so that the engine can be tested without
// processes. Any thread.

#pragma once

#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/stop_signals.h"

namespace quorbit {

// How a program ended.
struct ProgramEnd {
    int status = 0;  // its exit status; 0 means success
    std::string
        signal{};  // name of the signal that ended it, such as "SIGTERM"; empty if it exited
};

class ProcessRunner {
public:
    virtual ~ProcessRunner() = default;
    // Runs arguments[0] in the given folder, with an empty standard input and without a controlling
    // terminal, and returns when it has ended. Fails only if the program could not be started. Runs
    // one program at a time.
    virtual Result<ProgramEnd> RunAndWait(const std::vector<std::string>& arguments,
                                          const std::string& folder) = 0;
    // Sends a signal to the program that runs now and to the programs that it has started; does
    // nothing if none runs.
    virtual void PassOn(StopSignal signal) = 0;
    // Ends them at once.
    virtual void Kill() = 0;
    // Returns true for a regular file that the user may execute.
    virtual bool IsExecutable(const std::string& path) = 0;
    // Returns Ok for a readable regular file.
    virtual Status CanRead(const std::string& path) = 0;
    // Returns the full path of a program on the search path (PATH), or an empty string if there is
    // none.
    virtual std::string FindProgram(const std::string& name) = 0;
};

}  // namespace quorbit
