// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/main_tool_bar.h"

#include <QMenu>
#include <array>

#include "document/command_table.h"
#include "look/pictures.h"

namespace quorbit {
namespace {

constexpr std::array<int, 13> kButtons{
    CMD_FILE_NEW, CMD_FILE_OPEN, CMD_FILE_SAVE,   kSeparator, CMD_EDIT_ENTRY,
    CMD_DELETE,   kSeparator,    CMD_START_BATCH, kSeparator, CMD_REFRESH,
    CMD_LOG_FILE, kSeparator,    CMD_VIEWS};
constexpr std::array<int, 5> kViews{CMD_VIEW_LARGE_ICONS, CMD_VIEW_SMALL_ICONS, CMD_VIEW_LIST,
                                    CMD_VIEW_REPORT, CMD_VIEW_ROW_DETAIL};

void AddButton(CFlatToolBar& bar, CommandActions& actions, const Command& command)
{
    QAction* action = actions.Get(command.nId);
    action->setIcon(CommandPicture(command.nId));
    action->setIconText(CommandText(command.label));
    action->setToolTip(CommandText(command.help));
    bar.addAction(action);
    bar.widgetForAction(action)->setAccessibleName(CommandText(command.label));
}

// The menu belongs to the action, so it is available even if the window is too narrow for the
// button.
void AddViewsMenu(CFlatToolBar& bar, CommandActions& actions)
{
    auto* menu = new QMenu(&bar);
    for (const int nView : kViews) {
        menu->addAction(actions.Get(nView));
    }
    QObject::connect(menu, &QMenu::aboutToShow, &bar, [&actions] { actions.UpdateStates(); });
    actions.Get(CMD_VIEWS)->setMenu(menu);
    (void)bar.SetButtonDropDown(CMD_VIEWS);
}

}  // namespace

std::span<const int> ToolBarCommands()
{
    return kButtons;
}

CFlatToolBar* MakeMainToolBar(QWidget* parent, CommandActions& actions)
{
    auto* bar = new CFlatToolBar(QStringLiteral("Toolbar"), parent);
    bar->setObjectName(QStringLiteral("toolbar"));
    bar->SetFlatLook();
    for (const int nId : kButtons) {
        if (nId == kSeparator) {
            bar->addSeparator();
        } else if (const Command* command = FindCommand(nId)) {
            AddButton(*bar, actions, *command);
        }
    }
    AddViewsMenu(*bar, actions);
    return bar;
}

}  // namespace quorbit
