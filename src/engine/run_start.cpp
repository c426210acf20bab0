// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/run_start.h"

#include <optional>
#include <utility>

#include "engine/failure_policy.h"
#include "engine/log_owner.h"
#include "platform/standard_folders.h"
#include "platform/system_facts.h"

namespace quorbit {
namespace {

// The exit code if nothing was run. A window keeps 0, since the user has seen the message.
int NoRunCode(const RunServices& services)
{
    return (services.nRunMode & kRunInvisible) != 0 ? kExitNoRun : kExitOk;
}

// Determines the path of the log and stores it as the last one. If that fails, returns nullopt and
// sets the text of the refusal, or leaves it empty if the fatal handler has reported the failure.
std::optional<std::string> PlaceLog(MachineValues& machine, const std::string& documentPath,
                                    std::string& refusal)
{
    const auto folder = machine.GetRegValue(MachineValue::InstallPath);
    if (!folder) {
        return std::nullopt;
    }
    if (!folder->starts_with('/')) {
        refusal =
            "The log file cannot be created: \"Install Path\" in machine.ini must be the full path "
            "of a folder, and is \"" +
            Printable(*folder) + "\"";
        return std::nullopt;
    }
    std::string path = MakeLogPath(*folder, documentPath);
    if (!machine.SetRegValue(NameOf(MachineValue::LogFile), path)) {
        return std::nullopt;
    }
    return path;
}

// The lock on the log prevents two simultaneous runs of a document, and of two documents of the
// same name.
RunRefusal RefuseBusyLog(const std::string& path, const std::string& documentPath)
{
    const std::string owner = OwnerOfLog(path);
    if (!IsAnotherDocument(owner, documentPath)) {
        return {"This batch file is being run already. Its log file is in use by that run: " +
                    Printable(path),
                kExitNoRun, false};
    }
    return {"Another batch file of the same name is being run: " + owner +
                ". Both use the log file " + Printable(path) +
                ". Wait until that run has ended, or rename one of the two files.",
            kExitNoRun, false};
}

RunRefusal RefuseWithoutLog(const std::string& path, const std::string& documentPath,
                            const Error& error, int noRunCode)
{
    if (error.Kind() == ErrorKind::Busy) {
        return RefuseBusyLog(path, documentPath);
    }
    return {"The log file cannot be created: " + Printable(path) + ": " + error.Text(), noRunCode,
            true};
}

// Warns if the log of another document was replaced. Not if that document is gone: it has probably
// been moved.
void WarnOfReplacedLog(CRunContext& ctx, const std::string& owner)
{
    if (IsAnotherDocument(owner, ctx.m_pDoc->m_strFilePath) &&
        KindOfPath(owner) == PathKind::File) {
        ReportWarning(ctx, {RunOperation::WriteLog, ctx.m_strLogPath, {}}, ErrorKind::Other,
                      "the log of another batch file of the same name was replaced: " + owner +
                          ". Rename one of the two files to keep both logs.");
    }
}

// Creates the log. Its folder is created again if it was deleted, since only the set-up would do
// that.
Result<std::unique_ptr<LogOutput>> CreateLog(const std::string& path)
{
    auto output = CreateLogOutput(path);
    if (output || output.GetError().Kind() != ErrorKind::Missing) {
        return output;
    }
    if (const Status created = CreateFolders(ParentFolder(path)); !created) {
        return created.GetError();
    }
    return CreateLogOutput(path);
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
    pRun->m_nLanes = services.nLanes;
    return pRun;
}

}  // namespace

RunStart StartRun(const Batch& batch, RunSurface& surface, const RunServices& services)
{
    const int noRunCode = NoRunCode(services);
    std::string refusal;
    const auto path = PlaceLog(*services.pMachine, batch.m_strFilePath, refusal);
    if (!path) {
        return {nullptr, {std::move(refusal), noRunCode, true}};
    }
    const std::string owner = OwnerOfLog(*path);
    auto output = CreateLog(*path);
    if (!output) {
        return {nullptr,
                RefuseWithoutLog(*path, batch.m_strFilePath, output.GetError(), noRunCode)};
    }
    auto pRun = MakeContext(batch, surface, services);
    pRun->m_strLogPath = *path;
    pRun->m_pLogFile = std::make_unique<RunLog>(std::move(*output), services.now);
    WarnOfReplacedLog(*pRun, owner);
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
