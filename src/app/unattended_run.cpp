// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/unattended_run.h"

#include <unistd.h>

#include <cstdio>
#include <memory>
#include <thread>
#include <utility>

#include "batch/batch_file.h"
#include "engine/console_surface.h"
#include "engine/exit_code.h"
#include "engine/run_context.h"
#include "engine/run_driver.h"
#include "engine/run_flags.h"
#include "platform/native.h"
#include "platform/stop_signals.h"

namespace quorbit {
namespace {

void Complain(const std::string& text)
{
    std::fprintf(stderr, "quorbit: %s\n", text.c_str());
}

bool LoadBatch(const CommandLine& line, Batch& batch)
{
    if (!line.named) {
        return true;
    }
    const std::string path = MakeAbsolute(line.batchFile);
    const BatchFileStatus opened = ReadBatchFile(path, batch);
    if (!opened) {
        Complain(Printable(path) + ": " + opened.GetError().Text());
    }
    return opened.Ok();
}

// The log of the run; the reason is told if there is none. A log that cannot be created ends the
// program with exit code 0, one that another run holds with the code for "no run".
std::unique_ptr<RunLog> OpenLog(const std::string& path, int& exitCode)
{
    auto output = CreateLogOutput(path);
    if (output) {
        return std::make_unique<RunLog>(std::move(*output));
    }
    if (output.GetError().Kind() == ErrorKind::Busy) {
        Complain("another run of this document is on; its log is " + Printable(path));
        exitCode = kExitNoRun;
    } else {
        Complain("The log file cannot be created: " + Printable(path) + ": " +
                 output.GetError().Text());
        exitCode = kExitOk;
    }
    return nullptr;
}

void PrintSummary(const CRunContext& ctx, const std::string& logPath)
{
    std::printf(
        "Copied %d, synced %d, left alone %d, backed up %d, deleted %d, errors %d in %s.\nLog: "
        "%s\n",
        ctx.m_nCopyCount, ctx.m_nSyncCount, ctx.m_nDidntSyncCount, ctx.m_nBackupCount,
        ctx.m_nDeleteCount, ctx.m_nErrorCount, ctx.m_clock.Text().c_str(),
        Printable(logPath).c_str());
}

}  // namespace

int RunUnattended(const CommandLine& line, MachineValues& machine, const Profile& profile)
{
    Batch batch;
    if (!LoadBatch(line, batch)) {
        return kExitNoRun;
    }
    const auto installPath = machine.GetRegValue(MachineValue::InstallPath);
    if (!installPath) {
        return kExitOk;
    }
    const std::string logPath = MakeLogPath(*installPath, batch.m_strFilePath);
    if (!machine.SetRegValue(NameOf(MachineValue::LogFile), logPath)) {
        return kExitOk;
    }

    const DriveMap drives = profile.ReadDrives();
    const auto files = MakeFileSystem(drives);
    const auto processes = MakeProcessRunner(RaiseOpenFileLimit());
    int exitCode = kExitOk;
    CRunContext ctx;
    ConsoleSurface surface(StandardStreams(), [&ctx] { return ctx.m_clock.Text(); });
    ctx.m_pLogFile = OpenLog(logPath, exitCode);
    if (!ctx.m_pLogFile) {
        return exitCode;
    }
    ctx.m_pDoc = &batch;
    ctx.m_pDlg = &surface;
    ctx.m_pFiles = files.get();
    ctx.m_pProcesses = processes.get();
    ctx.m_drives = drives;
    ctx.m_nRunMode = line.nRunMode;
    ctx.m_readOptFlags = [&profile] {
        return static_cast<std::uint32_t>(profile.GetProfileInt(Setting::OptFlags));
    };
    ctx.m_setExitCode = [&exitCode](int code) { exitCode = code; };
    ctx.m_bSyncAtEnd = profile.GetProfileInt(Setting::SyncAtEnd) != 0;

    StopOnSignals(g_bStopRun);
    IgnoreWriteSignals();
    g_bRunStarted = 1;
    std::jthread(RunThreadProc, &ctx).join();
    if (line.summary || isatty(STDOUT_FILENO) != 0) {
        PrintSummary(ctx, logPath);
    }
    return exitCode;
}

}  // namespace quorbit
