// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Makes the service structs of document, panes, dialogs, help and runs from what the application
// has, and owns what only they use. User interface thread only.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/window/app_services.h"
#include "app/window/document_files.h"
#include "app/window/main_frame.h"
#include "app/window/recent_files.h"
#include "batch/machine_values.h"
#include "batch/profile.h"
#include "dialogs/external_file_dialog.h"
#include "dialogs/file_dialog.h"
#include "dialogs/file_type_dialog.h"
#include "dialogs/options_dialog.h"
#include "engine/dialog/progress_services.h"
#include "help/help_window.h"
#include "panes/item_icons.h"
#include "panes/pane_services.h"
#include "platform/shell/shell_folder.h"

namespace quorbit {

class ServiceFactory {
public:
    // What is given must outlive this object. parent gives the window that dialogs open over, or
    // null for none.
    ServiceFactory(const AppServices& services, MachineValues& machine, const Profile& profile,
                   const RecentFiles& recent, std::function<QWidget*()> parent);

    // The dialogs of the entries are one set for the life of this object.
    [[nodiscard]] DocumentServices ForDocument(RunDialog& run);
    // isInteractive is asked at each use: only what a user opens is a recent file.
    [[nodiscard]] DocumentFilesServices ForFiles(std::function<bool()> isInteractive) const;
    [[nodiscard]] DialogServices ForDialogs() const;
    [[nodiscard]] OptionSources ForOptions() const;
    [[nodiscard]] PaneServices ForPanes(CQRBDoc& doc, CMainFrame& frame,
                                        std::uint32_t nRunMode) const;
    [[nodiscard]] HelpWindowServices ForHelp(std::function<void(int)> postCommand) const;

    // How a run reaches the process.
    struct RunEnd {
        std::function<void(int)> setExitCode;  // of the process, should it end
        std::function<void(int)> endProgram;   // ends the program now, with this exit code
    };
    // For one run; the services of the run before become invalid.
    [[nodiscard]] ProgressServices ForRun(CMainFrame& frame, std::uint32_t nRunMode, RunEnd end);

    // The folder in which File Open starts and a new document is saved.
    [[nodiscard]] std::string QrbFilePath() const;

private:
    // Nothing if it cannot be read.
    [[nodiscard]] std::optional<std::string> InstallPath() const;

    const AppServices& m_services;
    MachineValues& m_machine;
    const Profile& m_profile;
    const RecentFiles& m_recent;
    std::function<QWidget*()> m_parent;

    ShellFolderPtr m_desktop;  // the root of what panes and dialogs show
    ItemIcons m_icons;
    CFileTypeDlg m_dlgFileType;
    CFileDlg m_dlgFile;
    CExternalFile m_dlgScript;
    std::unique_ptr<FileSystem> m_pRunFiles;  // of the last run
    std::unique_ptr<ProcessRunner> m_pRunProcesses;
};

}  // namespace quorbit
