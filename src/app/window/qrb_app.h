// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The application: starts up, owns the document and the main window, and determines the exit code.
// One per process. User interface thread only, except FatalMessage.

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
#include "platform/stop_signals.h"

namespace quorbit {

class CQRBApp : public FrameOwner, public FatalHandler {
public:
    CQRBApp(CommandLine line, AppServices services);
    ~CQRBApp() override;
    CQRBApp(const CQRBApp&) = delete;
    CQRBApp& operator=(const CQRBApp&) = delete;

    std::uint32_t m_nRunMode;  // 0 if interactive; constant after InitInstance
    bool m_bFirstRun = false;  // first start of the program
    int m_nScreenCX = 0;       // width of the work area, pixels
    int m_nScreenCY = 0;       // height of the work area, pixels
    int m_nExitCode = 0;       // highest exit code of the runs so far

    // Starts the program and shows the window. If it returns false, the process must end with the
    // code of ExitInstance, without running the event loop.
    [[nodiscard]] bool InitInstance();
    // Returns the exit code of the process. result: the exit code of the event loop.
    [[nodiscard]] int ExitInstance(int result) const;

    [[nodiscard]] CQRBDoc& Document() { return m_doc; }
    [[nodiscard]] DocumentFiles& Files() { return m_files; }
    // Null until InitInstance has created it. Owned by this object.
    [[nodiscard]] CMainFrame* MainFrame() { return m_pMainWnd.get(); }

    // The commands New, Open, recent files, About, help and tips.
    bool OnCommand(int nId) override;
    bool OnUpdateCommand(int nId, CommandState& state) override;

    void ViewLogFile() override;
    void ShowOptions() override;
    void OpenHelp() override;
    void OpenHelpOnFocus() override;
    [[nodiscard]] bool CanCloseFrame() override;
    void OnFrameClosed() override;

    // Null until InitInstance has created it. Owned by this object.
    [[nodiscard]] HelpDesk* Help() { return m_help.get(); }
    // Handles a signal that asks the process to end: stops an open run like Cancel, otherwise
    // closes the window like Exit. While the question whether to save is open, the first signal
    // waits for the answer, and the second ends the process without saving.
    void OnStopSignal(StopSignal signal);

    // Shows the text, asks to save changes, and leaves the event loop with exit code 0. Any thread;
    // from other threads it returns before the text is shown.
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
    // Returns nothing if there are no tips, so that this target does not handle the command.
    [[nodiscard]] std::optional<CommandState> TipsState() const;
    [[nodiscard]] ProgressServices RunServices();
    [[nodiscard]] FrameServices MainFrameServices();
    void EndProgram(int code);
    void CloseAsExit(StopSignal signal);
    void EndUnsaved(StopSignal signal);

    CommandLine m_line;
    AppServices m_services;
    MachineValues m_machine;
    Profile m_profile;
    RecentFiles m_recent;
    std::optional<int> m_endCode;  // set: the process ends with this code
    int m_nStopQuestion = 0;  // the question whether to save that a stop signal has met or caused

    ServiceFactory m_factory;
    WindowRun m_run;
    CQRBDoc m_doc;
    DocumentFiles m_files;
    std::unique_ptr<CMainFrame> m_pMainWnd;
    std::unique_ptr<HelpDesk> m_help;
};

}  // namespace quorbit
