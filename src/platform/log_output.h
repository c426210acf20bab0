// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A file that one process writes and locks. Behind an interface so that a failing log can be
// tested.

#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace quorbit {

class LogOutput {
public:
    virtual ~LogOutput() = default;  // closes the file and gives up the lock
    // Appends all of the bytes.
    virtual Status Write(std::string_view bytes) = 0;
    // Closes the file and gives up the lock: on some file systems the last write error comes here.
    // Nothing may be written after that.
    virtual Status Close() = 0;
};

// Creates the file, or empties the one that is there. Fails with Busy, and leaves the file as it
// is, while another process (or another LogOutput) has it open.
Result<std::unique_ptr<LogOutput>> CreateLogOutput(const std::string& path);

}  // namespace quorbit
