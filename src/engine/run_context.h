// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The record of one run, and what the run works with.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "batch/batch.h"
#include "engine/elapsed_clock.h"
#include "engine/exit_code.h"
#include "engine/run_log.h"
#include "engine/run_surface.h"
#include "platform/file_system.h"
#include "platform/path_text.h"
#include "platform/process_runner.h"

namespace quorbit {

// Bits of a run mode, set from the command line; 0 for a run that a person started in the window.
enum : std::uint32_t {
    kRunAndQuit = 1,      // /VS
    kRunAndStayOpen = 2,  // /VO
    kRunInvisible = 4,    // /I
};

struct CRunContext {
    CRunContext() = default;
    // now: of the elapsed time, which starts at once.
    explicit CRunContext(ElapsedClock::Now now) : m_clock(std::move(now)) {}

    const Batch* m_pDoc = nullptr;          // not owned; does not change during the run
    RunSurface* m_pDlg = nullptr;           // not owned: whoever shows the run
    FileSystem* m_pFiles = nullptr;         // not owned
    ProcessRunner* m_pProcesses = nullptr;  // not owned
    DriveMap m_drives;                      // for the paths of scripts

    std::uint32_t m_nRunMode = 0;
    std::function<std::uint32_t()> m_readOptFlags;  // the option bits, read at each error
    bool m_bSyncAtEnd = true;  // wait for the disk before the footer is written
    std::string m_strLogPath;

    // Only the worker changes the counters.
    std::int32_t m_nFilesLeft = 0;       // raised by the count pass, lowered by the process pass
    std::int32_t m_nCopyCount = 0;       // copied where no sync or backup decision applied
    std::int32_t m_nSyncCount = 0;       // copied because the source was newer
    std::int32_t m_nDeleteCount = 0;     // files deleted, and folders deleted as a unit
    std::int32_t m_nDidntSyncCount = 0;  // left alone because the source was not newer
    std::int32_t m_nBackupCount = 0;     // copied by an incremental backup
    std::int32_t m_nErrorCount = 0;

    int m_nExitCode = kExitOk;  // of the process; set in the modes that end by themselves

    ElapsedClock m_clock;
    std::unique_ptr<RunLog> m_pLogFile;  // null once closed

    // Nobody is there to answer a question.
    [[nodiscard]] bool IsUnattended() const { return (m_nRunMode & kRunInvisible) != 0; }
};

}  // namespace quorbit
