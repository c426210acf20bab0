// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/service_factory.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "batch/reg_key.h"
#include "look/pictures.h"
#include "platform/native.h"
#include "platform/path_text.h"
#include "platform/shell/desktop_folder.h"
#include "platform/standard_folders.h"
#include "platform/system_facts.h"

namespace quorbit {
ServiceFactory::ServiceFactory(const AppServices& services, MachineValues& machine,
                               const Profile& profile, const RecentFiles& recent,
                               std::function<QWidget*()> parent)
    : m_services(services),
      m_machine(machine),
      m_profile(profile),
      m_recent(recent),
      m_parent(std::move(parent)),
      m_desktop(MakeDesktopFolder(SystemShellSources(m_profile.ReadDrives()))),
      m_dlgFileType(ForDialogs()),
      m_dlgFile(ForDialogs()),
      m_dlgScript(ForDialogs())
{
}

DocumentServices ServiceFactory::ForDocument(RunDialog& run)
{
    return {
        .fileTypeDialog = &m_dlgFileType,
        .fileDialog = &m_dlgFile,
        .scriptDialog = &m_dlgScript,
        .runDialog = &run,
        .readDefaultEntry =
            [this] {
                const std::int32_t bits = m_profile.GetProfileInt(Setting::FileBits);
                return DefaultEntry{static_cast<std::uint32_t>(bits),
                                    m_profile.GetProfileString(Setting::FileTypes)};
            },
        .readCodePage = [this] { return m_profile.GetProfileInt(Setting::CodePage); },
    };
}

DocumentFilesServices ServiceFactory::ForFiles(std::function<bool()> isInteractive) const
{
    return {
        .addRecent =
            [this, isInteractive = std::move(isInteractive)](const std::string& path) {
                if (isInteractive()) {
                    m_recent.Add(path);
                }
            },
        .standardFolder = [this] { return QrbFilePath(); },
    };
}

DialogServices ServiceFactory::ForDialogs() const
{
    return {
        .pPrompts = m_services.pPrompts,
        .pIcons = &m_icons,
        .desktop = m_desktop,
        .drives = m_profile.ReadDrives(),
        .pProfile = &m_profile,
        .parent = m_parent,
    };
}

OptionSources ServiceFactory::ForOptions() const
{
    return {
        .pProfile = &m_profile,
        .readInstallPath = [this] { return InstallPath(); },
        .readLogFile = [this] { return m_machine.GetRegValue(MachineValue::LogFile); },
    };
}

PaneServices ServiceFactory::ForPanes(CQRBDoc& doc, CMainFrame& frame, std::uint32_t nRunMode) const
{
    return {
        .pDoc = &doc,
        .pProfile = &m_profile,
        .pPrompts = m_services.pPrompts,
        .pIcons = &m_icons,
        .marks = {Picture("entry-delete"), Picture("entry")},
        .desktop = m_desktop,
        .nRunMode = nRunMode,
        .sendCommand = [&frame](int nId) { (void)frame.OnCmdMsg(nId); },
        .postCommand = [&frame](int nId) { frame.PostCommand(nId); },
        .setActive = [&frame](CView* view) { frame.Route().SetActiveView(view); },
        .isFrameMinimised = [&frame] { return frame.isMinimized(); },
    };
}

HelpWindowServices ServiceFactory::ForHelp(std::function<void(int)> postCommand) const
{
    HelpWindowServices services{.pProfile = &m_profile};
    if (m_services.showTips) {
        services.showTip = [post = std::move(postCommand)] { post(CMD_TIP_OF_THE_DAY); };
    }
    return services;
}

ProgressServices ServiceFactory::ForRun(CMainFrame& frame, std::uint32_t nRunMode, RunEnd end)
{
    const DriveMap drives = m_profile.ReadDrives();
    m_pRunFiles = MakeFileSystem(drives);
    m_pRunProcesses = MakeProcessRunner(m_services.nOpenFileLimit);
    return {
        .run =
            {
                .pMachine = &m_machine,
                .pFiles = m_pRunFiles.get(),
                .pProcesses = m_pRunProcesses.get(),
                .drives = drives,
                .nRunMode = nRunMode,
                .bSyncAtEnd = m_profile.GetProfileInt(Setting::SyncAtEnd) != 0,
                .nLanes =
                    static_cast<unsigned>(std::max(0, m_profile.GetProfileInt(Setting::Lanes))),
                .readOptFlags =
                    [this] {
                        return static_cast<std::uint32_t>(
                            m_profile.GetProfileInt(Setting::OptFlags));
                    },
            },
        .pPrompts = m_services.pPrompts,
        .pTextEditor = m_services.pTextEditor,
        .setExitCode = std::move(end.setExitCode),
        .postRefresh = [&frame] { frame.PostCommand(CMD_REFRESH); },
        .postExit = [&frame] { frame.PostCommand(CMD_EXIT); },
        .endProgram = std::move(end.endProgram),
    };
}

std::optional<std::string> ServiceFactory::InstallPath() const
{
    CRegKey machine(m_services.stores);
    std::string path;
    const bool read = machine.Open(RegParent::LocalMachine, MachineKeyPath()) &&
                      machine.Read(NameOf(MachineValue::InstallPath), path);
    return read ? std::optional(path) : std::nullopt;
}

std::string ServiceFactory::QrbFilePath() const
{
    const std::string logs = InstallPath().value_or(StateFolder());
    std::vector<std::string> folders;
    for (const std::string& file : m_recent.List()) {
        folders.push_back(ParentFolder(file));
    }
    folders.push_back(m_profile.GetProfileString(Setting::QrbFilePath, {}));
    const auto found = std::ranges::find_if(folders, [&logs](const std::string& folder) {
        return WithSeparator(folder) != WithSeparator(logs) &&
               KindOfPath(folder) == PathKind::Folder;
    });
    return found == folders.end() ? HomeFolder() : *found;
}

}  // namespace quorbit
