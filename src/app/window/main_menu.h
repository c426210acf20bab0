// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The menu bar of the main window, with the recent files in its File menu. User interface thread
// only.

#pragma once

#include <QMainWindow>
#include <QMenu>
#include <vector>

#include "app/window/command_actions.h"
#include "app/window/recent_files.h"

namespace quorbit {

class MainMenu {
public:
    // Fills the menu bar of frame, which owns the menus. This object, actions and recent must
    // outlive the menus.
    MainMenu(QMainWindow& frame, CommandActions& actions, const RecentFiles& recent);

private:
    void AddRecentFiles(QMenu& menu);
    void UpdateRecentFiles();

    QMainWindow& m_frame;
    CommandActions& m_actions;
    const RecentFiles& m_recent;
    std::vector<QAction*> m_recentActions;
};

}  // namespace quorbit
