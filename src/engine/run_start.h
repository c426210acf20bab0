// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Starts a run, in the window or unattended: determines the log path, creates and locks the log,
// and creates the context, or returns the reason for a refusal.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "batch/batch.h"
#include "batch/machine_values.h"
#include "engine/exit_code.h"
#include "engine/run_context.h"
#include "engine/run_log.h"
#include "engine/run_surface.h"
#include "platform/file_system.h"
#include "platform/path_text.h"
#include "platform/process_runner.h"
#include "platform/required.h"

namespace quorbit {

// Services for a run. Pointers are not owned and must outlive the run. During the run only the
// worker may use the file system and the process runner.
struct RunServices {
    Required<MachineValues*>
        pMachine;  // provides the folder of the logs; stores the path of the last log
    Required<FileSystem*> pFiles;
    Required<ProcessRunner*> pProcesses;
    DriveMap drives{};

    std::uint32_t nRunMode = 0;  // kRunAndQuit, kRunAndStayOpen, kRunInvisible
    bool bSyncAtEnd = true;      // files are on the disk before they take their place
    unsigned nLanes = 1;         // see Lanes; 0 adapts
    // Returns OptFlags (kOptSuppressErrors, kOptRefreshViews); called at each use. Called by the
    // worker, and by the user interface while no worker runs.
    Required<std::function<std::uint32_t()>> readOptFlags;
    RunLog::Now now = CoarseNow;  // for the elapsed time and the age of log lines
};

// The reason why a run was not started.
struct RunRefusal {
    std::string text;        // empty: already reported by the fatal handler of the machine values
    int exitCode = kExitOk;  // if the process was started for this run; never kExitOk with /I
    bool bEndsProgram = false;  // end the program even if it was not started for this run
};

struct RunStart {
    std::unique_ptr<CRunContext> pRun;  // ready for RunThreadProc; null if the run was refused
    RunRefusal refusal;
};

// Stores the path of the log as the last one, creates and locks the log, in a folder that is
// created if it is missing, and creates the context with its clock running. Warns on the surface if
// the log of another document of the same name is replaced. `batch` and `surface` must outlive the
// run. Call it on the thread that uses the machine values.
[[nodiscard]] RunStart StartRun(const Batch& batch, RunSurface& surface,
                                const RunServices& services);

// Returns the path of the log of a document: its name, with the extension replaced by ".log",
// appended to installPath. If the name is empty or has no dot, the log is named ".log".
[[nodiscard]] std::string MakeLogPath(std::string_view installPath, std::string_view documentPath);

}  // namespace quorbit
