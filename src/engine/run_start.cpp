// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/run_start.h"

#include <optional>
#include <utility>

namespace quorbit {
namespace {

// Determines the path of the log and stores it as the last one. Returns nullopt if the settings
// failed, which the fatal handler has reported.
std::optional<std::string> PlaceLog(MachineValues& machine, const std::string& documentPath)
{
    const auto folder = machine.GetRegValue(MachineValue::InstallPath);
    if (!folder) {
        return std::nullopt;
    }
    std::string path = MakeLogPath(*folder, documentPath);
    if (!machine.SetRegValue(NameOf(MachineValue::LogFile), path)) {
        return std::nullopt;
    }
    return path;
}

RunRefusal RefuseWithoutLog(const std::string& path, const Error& error)
{
    const std::string where = Printable(path);
    // The lock on the log prevents two simultaneous runs of a document.
    if (error.Kind() == ErrorKind::Busy) {
        return {
            "This batch file is being run already. Its log file is in use by that run: " + where,
            kExitNoRun, false};
    }
    return {"The log file cannot be created: " + where + ": " + error.Text(), kExitOk, true};
}

std::unique_ptr<CRunContext> MakeContext(const Batch& batch, RunSurface& surface,
                                         const RunServices& services)
{
    auto pRun = std::make_unique<CRunContext>(services.now);
    pRun->m_pDoc = &batch;
    pRun->m_pDlg = &surface;
    pRun->m_pFiles = services.pFiles;
    pRun->m_pProcesses = services.pProcesses;
    pRun->m_drives = services.drives;
    pRun->m_nRunMode = services.nRunMode;
    pRun->m_readOptFlags = services.readOptFlags;
    pRun->m_bSyncAtEnd = services.bSyncAtEnd;
    return pRun;
}

}  // namespace

RunStart StartRun(const Batch& batch, RunSurface& surface, const RunServices& services)
{
    const auto path = PlaceLog(*services.pMachine, batch.m_strFilePath);
    if (!path) {
        return {};
    }
    auto output = CreateLogOutput(*path);
    if (!output) {
        return {nullptr, RefuseWithoutLog(*path, output.GetError())};
    }
    auto pRun = MakeContext(batch, surface, services);
    pRun->m_strLogPath = *path;
    pRun->m_pLogFile = std::make_unique<RunLog>(std::move(*output), services.now);
    return {std::move(pRun), {}};
}

std::string MakeLogPath(std::string_view installPath, std::string_view documentPath)
{
    const char separator = SeparatorOf(documentPath);
    const std::size_t nameAt = documentPath.rfind(separator);
    std::string name(nameAt == std::string_view::npos ? documentPath : documentPath.substr(nameAt));
    const std::size_t dot = name.rfind('.');
    name.resize(dot == std::string::npos ? 0 : dot);
    // `name` starts with the separator, and the folder usually ends in one.
    if (!name.empty() && name.front() == separator && EndsInSeparator(installPath)) {
        name.erase(0, 1);
    }
    return std::string(installPath) + name + ".log";
}

}  // namespace quorbit
