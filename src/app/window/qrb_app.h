// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The application: brings the process up, holds document and main window, and gives the process its
// exit code. One a process, passed to whoever needs it. User interface thread only, but for
// FatalMessage.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "app/command_line.h"
#include "app/window/app_services.h"
#include "app/window/document_files.h"
#include "app/window/frame_owner.h"
#include "app/window/main_frame.h"
#include "app/window/recent_files.h"
#include "app/window/service_factory.h"
#include "app/window/window_run.h"
#include "batch/fatal_handler.h"
#include "batch/machine_values.h"
#include "batch/profile.h"
#include "document/command_map.h"
#include "help/help_desk.h"

namespace quorbit {

class CQRBApp : public FrameOwner, public FatalHandler {
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
    // Null before it was made.
    [[nodiscard]] CMainFrame* MainFrame() { return m_pMainWnd.get(); }

    // New, Open, recent files, About, help, tips.
    bool OnCommand(int nId) override;
    bool OnUpdateCommand(int nId, CommandState& state) override;

    void ViewLogFile() override;
    void ShowOptions() override;
    void OpenHelp() override;
    void OpenHelpOnFocus() override;
    [[nodiscard]] bool CanCloseFrame() override;
    void OnFrameClosed() override;

    // Null before InitInstance.
    [[nodiscard]] HelpDesk* Help() { return m_help.get(); }
    // A signal asks the process to end: a run as Cancel would, else the window as Exit would.
    void OnStopSignal();

    // Shows the text and leaves the event loop. The exit code is 0 then.
    void FatalMessage(const std::string& text) override;

private:
    [[nodiscard]] bool ReadFirstRun();
    void RegisterFileTypes() const;
    void ReadScreenSize();
    [[nodiscard]] bool ProcessShellCommand();

    [[nodiscard]] static const CommandMap<CQRBApp>& Commands();
    void OnFileNew();
    void OnFileOpen();
    void OnOpenRecent(int nId);
    [[nodiscard]] std::optional<CommandState> RecentState(int nId) const;
    void OnAbout();
    void OnTips();
    // Not a command of this target if there are no tips.
    [[nodiscard]] std::optional<CommandState> TipsState() const;
    [[nodiscard]] ProgressServices RunServices();
    [[nodiscard]] FrameServices MainFrameServices();
    void EndProgram(int code);
    void CloseAsExit();

    CommandLine m_line;
    AppServices m_services;
    MachineValues m_machine;
    Profile m_profile;
    RecentFiles m_recent;
    std::optional<int> m_endCode;  // the process ends whatever else happens

    ServiceFactory m_factory;
    WindowRun m_run;
    CQRBDoc m_doc;
    DocumentFiles m_files;
    std::unique_ptr<CMainFrame> m_pMainWnd;
    std::unique_ptr<HelpDesk> m_help;
};

}  // namespace quorbit
