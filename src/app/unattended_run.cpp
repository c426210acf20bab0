// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/unattended_run.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <thread>
#include <utility>

#include "app/complaint.h"
#include "app/stop_requests.h"
#include "batch/batch_file.h"
#include "engine/console_surface.h"
#include "engine/run_driver.h"
#include "engine/run_flags.h"
#include "engine/run_start.h"
#include "platform/native.h"
#include "platform/standard_streams.h"
#include "platform/stop_signals.h"
#include "platform/terminal.h"

namespace quorbit {
namespace {

bool LoadBatch(const CommandLine& line, const Profile& profile, Batch& batch)
{
    const std::string path = MakeAbsolute(line.batchFile);
    const BatchFileStatus opened =
        ReadBatchFile(path, batch, profile.GetProfileInt(Setting::CodePage));
    if (!opened) {
        Complain(Printable(path) + ": " + opened.GetError().Text());
    }
    return opened.Ok();
}

int Refuse(const RunRefusal& refusal)
{
    if (!refusal.text.empty()) {
        Complain(refusal.text);
    }
    return kExitNoRun;
}

std::string Summary(const CRunContext& ctx)
{
    const auto count = [](const char* label, std::int32_t value) {
        return label + std::to_string(value);
    };
    return count("Copied ", ctx.m_nCopyCount) + count(", synced ", ctx.m_nSyncCount) +
           count(", left alone ", ctx.m_nDidntSyncCount) +
           count(", backed up ", ctx.m_nBackupCount) + count(", deleted ", ctx.m_nDeleteCount) +
           count(", errors ", ctx.m_nErrorCount) + " in " + ctx.m_clock.Text() +
           ".\nLog: " + Printable(ctx.m_strLogPath) + "\n";
}

// Prints the totals if they are wanted. Returns false if that failed.
bool PrintSummary(const CommandLine& line, const CRunContext& ctx)
{
    if (!line.summary && !IsTerminal()) {
        return true;
    }
    const Status written = WriteStandardOutput(Summary(ctx));
    if (!written) {
        Complain("standard output: " + written.GetError().Text());
    }
    return written.Ok();
}

}  // namespace

int RunUnattended(const CommandLine& line, MachineValues& machine, const Profile& profile)
{
    Batch batch;
    if (!LoadBatch(line, profile, batch)) {
        return kExitNoRun;
    }
    const DriveMap drives = profile.ReadDrives();
    const auto files = MakeFileSystem(drives);
    const auto processes = MakeProcessRunner(RaiseOpenFileLimit());
    const RunServices services{
        .pMachine = &machine,
        .pFiles = files.get(),
        .pProcesses = processes.get(),
        .drives = drives,
        .nRunMode = line.nRunMode,
        .bSyncAtEnd = profile.GetProfileInt(Setting::SyncAtEnd) != 0,
        .nLanes = static_cast<unsigned>(std::max(0, profile.GetProfileInt(Setting::Lanes))),
        .readOptFlags =
            [&profile] {
                return static_cast<std::uint32_t>(profile.GetProfileInt(Setting::OptFlags));
            },
    };

    RunStart start;
    ConsoleSurface surface(StandardStreams(), [&start] { return start.pRun->m_clock.Text(); });
    start = StartRun(batch, surface, services);
    if (!start.pRun) {
        return Refuse(start.refusal);
    }

    // Before the worker thread starts, so that no signal ends the process in the middle of a file.
    StopRequests stop(*start.pRun, surface);
    const StopSignals stopSignals([&stop](StopSignal signal) { stop.OnSignal(signal); });
    IgnoreWriteSignals();
    g_bRunStarted = 1;
    std::jthread(RunThreadProc, start.pRun.get()).join();
    const CRunContext& run = *start.pRun;
    const bool printed = PrintSummary(line, run);
    if (batch.m_arrEntries.empty()) {
        return kExitNoRun;  // the run has said so
    }
    const bool complete = printed && !run.m_bLogIncomplete && !stop.Stopped();
    return complete ? run.m_nExitCode : static_cast<int>(kExitErrors);
}

}  // namespace quorbit
