// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/main_tool_bar.h"

#include <QApplication>
#include <QMenu>
#include <QStyle>
#include <QToolButton>
#include <array>

#include "batch/command_table.h"

namespace quorbit {
namespace {

constexpr int kGap = 0;
constexpr std::array<int, 13> kButtons{
    CMD_FILE_NEW,    CMD_FILE_OPEN, CMD_FILE_SAVE, kGap,         CMD_EDIT_ENTRY, CMD_DELETE, kGap,
    CMD_START_BATCH, kGap,          CMD_REFRESH,   CMD_LOG_FILE, kGap,           CMD_VIEWS};
constexpr std::array<int, 5> kViews{CMD_VIEW_LARGE_ICONS, CMD_VIEW_SMALL_ICONS, CMD_VIEW_LIST,
                                    CMD_VIEW_REPORT, CMD_VIEW_ROW_DETAIL};

QString ToText(std::string_view text)
{
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

// For a theme that lacks the picture.
QStyle::StandardPixmap StandardPicture(int nId)
{
    switch (nId) {
        case CMD_FILE_OPEN:
            return QStyle::SP_DialogOpenButton;
        case CMD_FILE_SAVE:
            return QStyle::SP_DialogSaveButton;
        case CMD_EDIT_ENTRY:
            return QStyle::SP_FileDialogDetailedView;
        case CMD_DELETE:
            return QStyle::SP_TrashIcon;
        case CMD_START_BATCH:
            return QStyle::SP_MediaPlay;
        case CMD_REFRESH:
            return QStyle::SP_BrowserReload;
        case CMD_LOG_FILE:
            return QStyle::SP_FileDialogInfoView;
        case CMD_VIEWS:
            return QStyle::SP_FileDialogListView;
        default:
            return QStyle::SP_FileIcon;
    }
}

}  // namespace

QIcon IconOfCommand(int nId)
{
    const Command* command = FindCommand(nId);
    if (command == nullptr || command->icon.empty()) {
        return {};
    }
    const QIcon themed = QIcon::fromTheme(ToText(command->icon));
    return themed.isNull() ? QApplication::style()->standardIcon(StandardPicture(nId)) : themed;
}

QToolBar* MakeMainToolBar(QWidget* parent, CommandActions& actions)
{
    auto* bar = new QToolBar(QStringLiteral("Toolbar"), parent);
    bar->setObjectName(QStringLiteral("toolbar"));
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    const int side = bar->style()->pixelMetric(QStyle::PM_SmallIconSize);
    bar->setIconSize(QSize(side, side));
    for (const int nId : kButtons) {
        const Command* command = nId == kGap ? nullptr : FindCommand(nId);
        if (command == nullptr) {
            bar->addSeparator();
            continue;
        }
        auto* button = new QToolButton(bar);
        QAction* action = actions.Get(nId);
        action->setIcon(IconOfCommand(nId));
        action->setIconText(ToText(command->label));
        action->setToolTip(ToText(command->help));
        button->setDefaultAction(action);
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setMinimumWidth(bar->fontMetrics().averageCharWidth() * 9);
        button->setAccessibleName(ToText(command->label));
        if (nId == CMD_VIEWS) {
            auto* menu = new QMenu(button);
            for (const int view : kViews) {
                menu->addAction(actions.Get(view));
            }
            QObject::connect(menu, &QMenu::aboutToShow, bar,
                             [&actions] { actions.UpdateStates(); });
            button->setMenu(menu);
            button->setPopupMode(QToolButton::MenuButtonPopup);
        }
        bar->addWidget(button);
    }
    return bar;
}

}  // namespace quorbit
