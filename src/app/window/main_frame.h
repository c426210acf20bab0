// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The one top-level window: the menu, the status bar, the way of commands, and where it stands on
// the screen. User interface thread only.

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
    std::uint32_t nRunMode = 0;  // of the application; 0 in an interactive start
    bool bFirstRun = false;      // the first start after set-up
    QSize screen{};              // the work area of all screens, pixels
};

class CMainFrame : public CSpawnFrameWnd, public CommandTarget {
public:
    // Stays hidden.
    explicit CMainFrame(const FrameServices& services);

    // Shows the window as the profile tells; minimised and not activated in a run mode.
    void ShowFrame();

    // The way of every command, from menu, key and code alike. False if nobody takes it.
    bool OnCmdMsg(int nId);
    // Sends a command once the event loop is free.
    void PostCommand(int nId);
    [[nodiscard]] CommandRoute& Route() { return m_route; }

    // Fills the window: toolbar, panes. Without panes it is an empty window with a menu.
    void MakePanes(const PaneServices& services);

    // "QRB", a blank, the document's path or "Untitled".
    void OnUpdateFrameTitle();

    // What the frame does itself: the log viewer, help, the status bar, Exit.
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
    CFlatToolBar* m_wndToolBar;  // owned by the window, as the panes
    PaneArea* m_pPanes = nullptr;
    QTimer m_idle;
};

}  // namespace quorbit
