// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The state of one run and the services that it uses. Worker thread only during the run, except for
// the clock (any thread).

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "batch/batch.h"
#include "engine/elapsed_clock.h"
#include "engine/exit_code.h"
#include "engine/run_log.h"
#include "engine/run_problems.h"
#include "engine/run_surface.h"
#include "platform/file_system.h"
#include "platform/path_text.h"
#include "platform/process_runner.h"

namespace quorbit {

// Bits of the run mode, set by command-line switches. 0: the user starts the run in the window.
enum : std::uint32_t {
    kRunAndQuit = 1,      // /VS
    kRunAndStayOpen = 2,  // /VO
    kRunInvisible = 4,    // /I
};

struct CRunContext {
    CRunContext() = default;
    // now: the clock for the elapsed time, which starts immediately.
    explicit CRunContext(ElapsedClock::Now now) : m_clock(std::move(now)) {}

    const Batch* m_pDoc = nullptr;          // not owned; unchanged during the run
    RunSurface* m_pDlg = nullptr;           // not owned; shows the run
    FileSystem* m_pFiles = nullptr;         // not owned
    ProcessRunner* m_pProcesses = nullptr;  // not owned
    DriveMap m_drives;                      // translates the paths of scripts

    std::uint32_t m_nRunMode = 0;
    std::function<std::uint32_t()> m_readOptFlags;  // returns OptFlags; called at each error
    bool m_bSyncAtEnd = true;                       // sync the copies before writing the footer
    unsigned m_nLanes = 1;                          // see Lanes; 0 adapts
    std::string m_strLogPath;

    // Changed only by the worker.
    std::int32_t m_nFilesLeft = 0;    // units: added by the count pass, removed by the process pass
    std::int32_t m_nCopyCount = 0;    // copied without comparing times
    std::int32_t m_nSyncCount = 0;    // copied because the source was newer
    std::int32_t m_nDeleteCount = 0;  // deleted files, and deleted folders as one each
    std::int32_t m_nDidntSyncCount = 0;  // skipped by a sync because the source was not newer
    std::int32_t m_nBackupCount = 0;     // copied by an incremental backup
    std::int32_t m_nErrorCount = 0;
    std::size_t m_nEntry = RunProblem::kNoEntry;  // the entry being processed
    RunProblems m_problems;                       // kept after the run

    int m_nExitCode = kExitOk;  // of the process; set only with kRunInvisible or kRunAndQuit

    ElapsedClock m_clock;
    std::unique_ptr<RunLog> m_pLogFile;  // null once closed
    bool m_bLogIncomplete = false;       // a line could not be written

    // An unattended run: no prompts.
    [[nodiscard]] bool IsUnattended() const { return (m_nRunMode & kRunInvisible) != 0; }
};

}  // namespace quorbit
