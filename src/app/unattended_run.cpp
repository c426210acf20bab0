// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/unattended_run.h"

#include <cstdio>
#include <memory>
#include <thread>
#include <utility>

#include "batch/batch_file.h"
#include "engine/console_surface.h"
#include "engine/run_driver.h"
#include "engine/run_flags.h"
#include "engine/run_start.h"
#include "platform/native.h"
#include "platform/stop_signals.h"
#include "platform/terminal.h"

namespace quorbit {
namespace {

void Complain(const std::string& text)
{
    std::fprintf(stderr, "quorbit: %s\n", text.c_str());
}

bool LoadBatch(const CommandLine& line, const Profile& profile, Batch& batch)
{
    if (!line.named) {
        return true;
    }
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
    return refusal.exitCode;
}

void PrintSummary(const CRunContext& ctx)
{
    std::printf(
        "Copied %d, synced %d, left alone %d, backed up %d, deleted %d, errors %d in %s.\nLog: "
        "%s\n",
        ctx.m_nCopyCount, ctx.m_nSyncCount, ctx.m_nDidntSyncCount, ctx.m_nBackupCount,
        ctx.m_nDeleteCount, ctx.m_nErrorCount, ctx.m_clock.Text().c_str(),
        Printable(ctx.m_strLogPath).c_str());
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
    const StopSignals stopSignals([] { g_bStopRun = 1; });
    IgnoreWriteSignals();
    g_bRunStarted = 1;
    std::jthread(RunThreadProc, start.pRun.get()).join();
    if (line.summary || IsTerminal()) {
        PrintSummary(*start.pRun);
    }
    return start.pRun->m_nExitCode;
}

}  // namespace quorbit
