// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A file that one process writes and locks. An interface, so that tests can simulate a failing log.
// One thread at a time.

#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace quorbit {

class LogOutput {
public:
    virtual ~LogOutput() = default;  // closes the file and releases the lock
    // Appends all bytes, unbuffered.
    virtual Status Write(std::string_view bytes) = 0;
    // Closes the file and releases the lock. Some file systems report the last write error only
    // here. Do not write after that.
    virtual Status Close() = 0;
};

// Creates the file, or empties an existing one. Fails with Busy, and leaves the file unchanged, if
// another process or LogOutput has it open.
Result<std::unique_ptr<LogOutput>> CreateLogOutput(const std::string& path);

}  // namespace quorbit
