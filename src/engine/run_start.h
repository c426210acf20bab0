// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The start of a run, the same for a run in the window and for one without: where its log is, the
// lock on that log, the reason for a refusal, and the context.

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

// What a run needs from the program around it. Nothing is owned; all of it outlives the run, and
// files and processes belong to the worker while the run is on.
struct RunServices {
    Required<MachineValues*> pMachine;  // the folder of the logs; keeps the path of the last one
    Required<FileSystem*> pFiles;
    Required<ProcessRunner*> pProcesses;
    DriveMap drives{};

    std::uint32_t nRunMode = 0;  // kRunAndQuit, kRunAndStayOpen, kRunInvisible
    bool bSyncAtEnd = true;      // wait for the disk before the footer of the log is written
    // The option bits kOptSuppressErrors and kOptRefreshViews, read at each use.
    // Called by the worker, and by the user interface when no worker is.
    Required<std::function<std::uint32_t()>> readOptFlags;
    RunLog::Now now = CoarseNow;  // for the elapsed time and for the lines of the log
};

// Why a run did not start.
struct RunRefusal {
    std::string text;           // empty: the fatal handler of the machine values has told it
    int exitCode = kExitOk;     // of a process that was started for this run
    bool bEndsProgram = false;  // even if it was not
};

struct RunStart {
    std::unique_ptr<CRunContext> pRun;  // ready for RunThreadProc; null if the run was refused
    RunRefusal refusal;
};

// Stores the path of the document's log as the last one, creates the log and locks it, and makes
// the context of the run. The clock of the run starts. The document and the surface must outlive
// the run. Called on the thread that the machine values belong to.
[[nodiscard]] RunStart StartRun(const Batch& batch, RunSurface& surface,
                                const RunServices& services);

// The path of a document's log: the name of the document with ".log" in the folder of the
// installation. A document whose name has no dot, or that has no name, has the log ".log".
[[nodiscard]] std::string MakeLogPath(std::string_view installPath, std::string_view documentPath);

}  // namespace quorbit
