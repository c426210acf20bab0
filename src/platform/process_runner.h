// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Starts a program and waits for its end. Behind an interface so that the engine can be tested
// without processes.

#pragma once

#include <string>
#include <vector>

#include "platform/error.h"

namespace quorbit {

class ProcessRunner {
public:
    virtual ~ProcessRunner() = default;
    // Runs arguments[0] in the given folder and returns when it has ended, however it ended; its
    // exit status is not reported. Fails only if it could not be started. Standard input is empty.
    virtual Status RunAndWait(const std::vector<std::string>& arguments,
                              const std::string& folder) = 0;
    // True for a regular file that the user may execute.
    virtual bool IsExecutable(const std::string& path) = 0;
    // Ok for a readable regular file, else the reason.
    virtual Status CanRead(const std::string& path) = 0;
    // Full path of a program on the search path; empty if there is none.
    virtual std::string FindProgram(const std::string& name) = 0;
};

}  // namespace quorbit
