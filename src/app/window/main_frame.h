// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The main window: menu bar, toolbar, status bar, panes, command routing, and its position on the
// screen. User interface thread only.

#pragma once

#include <QSize>
#include <QTimer>
#include <cstdint>
#include <optional>

#include "app/window/command_actions.h"
#include "app/window/command_route.h"
#include "app/window/document_files.h"
#include "app/window/frame_owner.h"
#include "app/window/frameless_frame.h"
#include "app/window/main_menu.h"
#include "app/window/recent_files.h"
#include "batch/profile.h"
#include "document/command_target.h"
#include "document/qrb_doc.h"
#include "look/flat_tool_bar.h"
#include "look/spawn_frame_wnd.h"
#include "panes/pane_services.h"
#include "platform/required.h"

namespace quorbit {

class PaneArea;

// Objects are not owned and must outlive the frame.
struct FrameServices {
    Required<FrameOwner*> pOwner;
    Required<CQRBDoc*> pDoc;
    Required<DocumentFiles*> pFiles;
    Required<const Profile*> pProfile;
    Required<const RecentFiles*> pRecent;
    std::uint32_t nRunMode = 0;  // of the application; 0 if interactive
    bool bFirstRun = false;      // first start of the program
    QSize screen{};              // the work area of all screens, pixels
};

class CMainFrame : public CSpawnFrameWnd, public CommandTarget {
public:
    // Creates the window hidden, see ShowFrame.
    explicit CMainFrame(const FrameServices& services);

    // Shows the window at the position stored in the profile; on the first start in the middle of
    // the screen. In a run mode, shows it minimised and does not activate it.
    void ShowFrame();

    // Routes a command to its target. All commands, from menus, keys and code, come through here.
    // Returns false if no target handles it.
    bool OnCmdMsg(int nId);
    // Queues a command for the event loop.
    void PostCommand(int nId);
    [[nodiscard]] CommandRoute& Route() { return m_route; }

    // Creates the panes. Until then the window is empty except for its bars.
    void MakePanes(const PaneServices& services);

    // Sets the title: "QRB", a space, and the path of the document or "Untitled".
    void OnUpdateFrameTitle();

    // The commands of the frame itself: Exit, log file, options, help, pane focus, and bars.
    bool OnCommand(int nId) override;
    bool OnUpdateCommand(int nId, CommandState& state) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    [[nodiscard]] static const CommandMap<CMainFrame>& Commands();
    void MovePaneFocus(int nId);
    void ToggleToolBar();
    void ToggleStatusBar();
    void SaveGeometry();

    FrameServices m_services;
    CommandRoute m_route;
    CommandActions m_actions;
    std::optional<MainMenu> m_menu;
    FramelessFrame m_caption;
    CFlatToolBar* m_wndToolBar;  // owned by the window, like the panes
    PaneArea* m_pPanes = nullptr;
    QTimer m_idle;
};

}  // namespace quorbit
