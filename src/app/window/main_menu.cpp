// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/main_menu.h"

#include <QMenuBar>
#include <cstddef>
#include <string>

#include "platform/path_text.h"

namespace quorbit {
namespace {

struct Menu {
    const char* title;
    std::vector<int> items;  // command numbers and kSeparator
};

const std::vector<Menu>& Menus()
{
    static const std::vector<Menu> menus{
        {"&File",
         {CMD_FILE_NEW, CMD_FILE_OPEN, CMD_FILE_SAVE, CMD_FILE_SAVE_AS, kSeparator, CMD_START_BATCH,
          kSeparator, CMD_EXIT, kSeparator, CMD_RECENT_FILE_FIRST}},
        {"&Edit", {CMD_EDIT_ENTRY, CMD_DELETE}},
        {"&View",
         {CMD_VIEW_LARGE_ICONS, CMD_VIEW_SMALL_ICONS, CMD_VIEW_LIST, CMD_VIEW_REPORT,
          CMD_VIEW_ROW_DETAIL, kSeparator, CMD_SHOW_TOOLBAR, CMD_SHOW_STATUS_BAR, kSeparator,
          CMD_LOG_FILE, CMD_OPTIONS, CMD_REFRESH}},
        {"&Help", {CMD_HELP_TOPICS, CMD_ABOUT}},
    };
    return menus;
}

}  // namespace

MainMenu::MainMenu(QMainWindow& frame, CommandActions& actions, const RecentFiles& recent)
    : m_frame(frame), m_actions(actions), m_recent(recent)
{
    for (const Menu& entry : Menus()) {
        QMenu* menu = frame.menuBar()->addMenu(QLatin1String(entry.title));
        for (const int nId : entry.items) {
            if (nId == kSeparator) {
                menu->addSeparator();
            } else if (nId == CMD_RECENT_FILE_FIRST) {
                AddRecentFiles(*menu);
            } else {
                menu->addAction(m_actions.Get(nId));
            }
        }
        QObject::connect(menu, &QMenu::aboutToShow, &frame, [this] {
            m_actions.UpdateStates();
            UpdateRecentFiles();
        });
    }
}

void MainMenu::AddRecentFiles(QMenu& menu)
{
    for (int nId = CMD_RECENT_FILE_FIRST; nId <= CMD_RECENT_FILE_LAST; ++nId) {
        m_recentActions.push_back(m_actions.Get(nId));
        menu.addAction(m_recentActions.back());
    }
    UpdateRecentFiles();
}

void MainMenu::UpdateRecentFiles()
{
    const int room = m_frame.fontMetrics().averageCharWidth() * 60;
    const std::vector<std::string> paths = m_recent.List();
    for (std::size_t i = 0; i < m_recentActions.size(); ++i) {
        QAction& action = *m_recentActions[i];
        action.setVisible(i < paths.size());
        if (i < paths.size()) {
            const QString path = QString::fromStdString(Printable(paths[i]));
            const QString shown = m_frame.fontMetrics().elidedText(path, Qt::ElideMiddle, room);
            action.setText(QStringLiteral("&%1 %2").arg(i + 1).arg(WithoutMarks(shown)));
            action.setStatusTip(path);
        }
    }
    if (paths.empty()) {
        m_recentActions.front()->setText(QStringLiteral("Recent File"));
        m_recentActions.front()->setVisible(true);
    }
}

}  // namespace quorbit
