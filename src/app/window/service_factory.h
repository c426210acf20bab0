// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Creates the service structs of the document, panes, dialogs, help and runs from the services of
// the application, and owns the objects that only they use. User interface thread only.

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
    // All arguments must outlive this object. parent returns the parent window of dialogs, or null.
    ServiceFactory(const AppServices& services, MachineValues& machine, const Profile& profile,
                   const RecentFiles& recent, std::function<QWidget*()> parent);

    // The entry dialogs are owned by this object and shared by all calls.
    [[nodiscard]] DocumentServices ForDocument(RunDialog& run);
    // isInteractive is called on each use: only files opened interactively become recent files.
    [[nodiscard]] DocumentFilesServices ForFiles(std::function<bool()> isInteractive) const;
    [[nodiscard]] DialogServices ForDialogs() const;
    [[nodiscard]] OptionSources ForOptions() const;
    [[nodiscard]] PaneServices ForPanes(CQRBDoc& doc, CMainFrame& frame,
                                        std::uint32_t nRunMode) const;
    [[nodiscard]] HelpWindowServices ForHelp(std::function<void(int)> postCommand) const;

    // Callbacks with which a run affects the process.
    struct RunEnd {
        std::function<void(int)> setExitCode;  // for the end of the process
        std::function<void(int)> endProgram;   // ends the program now with this code
    };
    // Returns the services for one run. Invalidates those of the previous run.
    [[nodiscard]] ProgressServices ForRun(CMainFrame& frame, std::uint32_t nRunMode, RunEnd end);

    // Returns the initial folder of File Open and of saving a new document: the one of the batch
    // file used last, else the one set in the options, else the home folder. Never the folder of
    // the logs, which is hidden.
    [[nodiscard]] std::string QrbFilePath() const;

private:
    // Returns nothing if the path cannot be read.
    [[nodiscard]] std::optional<std::string> InstallPath() const;

    const AppServices& m_services;
    MachineValues& m_machine;
    const Profile& m_profile;
    const RecentFiles& m_recent;
    std::function<QWidget*()> m_parent;

    ShellFolderPtr m_desktop;  // the root folder of panes and dialogs
    ItemIcons m_icons;
    CFileTypeDlg m_dlgFileType;
    CFileDlg m_dlgFile;
    CExternalFile m_dlgScript;
    std::unique_ptr<FileSystem> m_pRunFiles;  // of the last run
    std::unique_ptr<ProcessRunner> m_pRunProcesses;
};

}  // namespace quorbit
