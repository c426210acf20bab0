// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The application: brings the process up, holds document and main window, and gives the process its
// exit code. One a process, passed to whoever needs it. User interface thread only, but for
// FatalMessage.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/command_line.h"
#include "app/window/document_files.h"
#include "app/window/file_type_registration.h"
#include "app/window/main_frame.h"
#include "app/window/recent_files.h"
#include "app/window/window_run.h"
#include "batch/fatal_handler.h"
#include "batch/machine_values.h"
#include "batch/profile.h"
#include "dialogs/external_file_dialog.h"
#include "dialogs/file_dialog.h"
#include "dialogs/file_type_dialog.h"
#include "engine/dialog/text_editor.h"
#include "help/help_desk.h"
#include "look/link_opener.h"
#include "panes/item_icons.h"
#include "panes/pane_services.h"
#include "platform/shell/shell_folder.h"

namespace quorbit {

// What the application works with. Objects are not owned and must outlive it.
struct AppServices {
    SettingsStores stores;
    Prompts* pPrompts = nullptr;
    TextEditor* pTextEditor = nullptr;
    std::uint64_t nOpenFileLimit = 0;  // for scripts; see MakeProcessRunner
    Registration registration{};
    LinkOpener* pLinkOpener = nullptr;
    std::function<void()> showSplash{};  // null: there is none
    std::function<void()> showTips{};    // null: there are none
    std::function<void(int)> endLoop{};  // leaves the event loop with an exit code
};

class CQRBApp : public CommandTarget, public FatalHandler {
public:
    CQRBApp(CommandLine line, AppServices services);
    ~CQRBApp() override;
    CQRBApp(const CQRBApp&) = delete;
    CQRBApp& operator=(const CQRBApp&) = delete;

    std::uint32_t m_nRunMode;  // 0 in an interactive start; fixed once InitInstance has begun
    bool m_bFirstRun = false;  // the first start after set-up
    int m_nScreenCX = 0;       // of the work area, pixels
    int m_nScreenCY = 0;       //
    int m_nExitCode = 0;       // asked for by a run

    // Brings the program up. False: the process is to end, with ExitInstance.
    [[nodiscard]] bool InitInstance();
    // The exit code of the process. result: that of the event loop.
    [[nodiscard]] int ExitInstance(int result) const;

    [[nodiscard]] CQRBDoc& Document() { return m_doc; }
    [[nodiscard]] DocumentFiles& Files() { return m_files; }
    [[nodiscard]] const Profile& GetProfile() const { return m_profile; }
    [[nodiscard]] const RecentFiles& Recent() const { return m_recent; }
    // Null before it was made.
    [[nodiscard]] CMainFrame* MainFrame() { return m_pMainWnd.get(); }

    // New, Open, recent files, About, help, tips.
    bool OnCommand(int nId) override;
    bool OnUpdateCommand(int nId, CommandState& state) override;

    // Shows the contents of the help.
    void OpenHelp();
    // Shows the chapter on what has the focus; the contents if there is none.
    void OpenHelpOnFocus();
    // Null before InitInstance.
    [[nodiscard]] HelpDesk* Help() { return m_help.get(); }
    // Shows the log of the last run.
    void ViewLogFile();
    // Runs the options dialog.
    void ShowOptions();

    // Asks to save; false: the window stays, or a run is on.
    [[nodiscard]] bool CanCloseFrame();
    void OnFrameClosed();
    // A signal asks the process to end: a run as Cancel would, else the window as Exit would.
    void OnStopSignal();

    // Shows the text and leaves the event loop. The exit code is 0 then.
    void FatalMessage(const std::string& text) override;

private:
    [[nodiscard]] bool ReadFirstRun();
    void RegisterFileTypes();
    [[nodiscard]] bool ProcessShellCommand();

    void OnFileOpen();
    void OnOpenRecent(std::size_t index);
    void OnAbout();
    // Nothing if it cannot be read.
    [[nodiscard]] std::optional<std::string> InstallPath() const;
    [[nodiscard]] std::string QrbFilePath() const;

    [[nodiscard]] DocumentServices MakeDocumentServices();
    [[nodiscard]] DocumentFilesServices MakeFilesServices();
    [[nodiscard]] ProgressServices MakeProgressServices();
    [[nodiscard]] DialogServices MakeDialogServices();
    [[nodiscard]] PaneServices MakePaneServices();
    [[nodiscard]] HelpWindowServices MakeHelpServices();
    void EndProgram(int code);
    void CloseAsExit();

    CommandLine m_line;
    AppServices m_services;
    MachineValues m_machine;
    Profile m_profile;
    RecentFiles m_recent;
    std::optional<int> m_endCode;  // the process ends whatever else happens

    std::unique_ptr<FileSystem> m_pRunFiles;  // of the run that is open
    std::unique_ptr<ProcessRunner> m_pRunProcesses;
    WindowRun m_run;
    ShellFolderPtr m_desktop;  // the root of what panes and dialogs show
    ItemIcons m_icons;
    CFileTypeDlg m_dlgFileType;
    CFileDlg m_dlgFile;
    CExternalFile m_dlgScript;
    CQRBDoc m_doc;
    DocumentFiles m_files;
    std::unique_ptr<CMainFrame> m_pMainWnd;
    std::unique_ptr<HelpDesk> m_help;
};

}  // namespace quorbit
