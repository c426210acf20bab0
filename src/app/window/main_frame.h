// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The one top-level window: the menu, the status bar, the way of commands, and where it stands on
// the screen. User interface thread only.

#pragma once

#include <QTimer>
#include <string>
#include <vector>

#include "app/window/command_actions.h"
#include "app/window/command_route.h"
#include "app/window/frameless_frame.h"
#include "document/command_target.h"
#include "look/flat_tool_bar.h"
#include "look/spawn_frame_wnd.h"
#include "panes/pane_services.h"

namespace quorbit {

class CQRBApp;
class PaneArea;

class CMainFrame : public CSpawnFrameWnd, public CommandTarget {
public:
    // app must outlive the frame. Stores the size of the screen in it. Stays hidden.
    explicit CMainFrame(CQRBApp& app);

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
    void MakeMenus();
    void AddRecentFiles(QMenu& menu);
    void UpdateRecentFiles();
    void SaveGeometry();

    CQRBApp& m_app;
    CommandRoute m_route;
    CommandActions m_actions;
    std::vector<QAction*> m_recentActions;
    FramelessFrame m_caption;
    CFlatToolBar* m_wndToolBar;  // owned by the window, as the panes
    PaneArea* m_pPanes = nullptr;
    QTimer m_idle;
};

}  // namespace quorbit
