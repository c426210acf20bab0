// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// One error or warning of a run, as a value: what was attempted, on what, and why it failed. Any
// thread.

#pragma once

#include <cstddef>
#include <string>

#include "platform/error.h"

namespace quorbit {

enum class ProblemSeverity {
    Error,    // logged and counted; sets the exit code
    Warning,  // the work was done, but not entirely as requested; neither logged nor counted
};

enum class RunOperation {
    Copy,
    Sync,
    Backup,
    CreateFolder,
    ListFolder,
    DeleteFile,
    DeleteFolder,
    RunScript,
    ReadEntry,    // the conversion of its texts
    WriteToDisk,  // the sync at the end of the run
    WriteLog,     // the log of the run
};

// What a problem is about. The paths are bytes as in the log, not yet printable.
struct ProblemSubject {
    RunOperation operation = RunOperation::Copy;
    std::string source;       // path of the file, folder or script; empty if there is none
    std::string destination;  // path at the destination; empty if there is none
};

struct RunProblem {
    // Not about a single entry.
    static constexpr std::size_t kNoEntry = static_cast<std::size_t>(-1);

    ProblemSeverity severity = ProblemSeverity::Error;
    std::size_t entry = kNoEntry;  // index in Batch::m_arrEntries
    ProblemSubject subject;
    ErrorKind kind = ErrorKind::Other;
    std::string text;  // the reason without a line end, usually in the words of the system
};

}  // namespace quorbit
