// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Turns the entries of ordinary menus into entries that the program measures and draws by itself,
// with the pictures of the toolbar and a check mark of its own. User interface thread only.

#pragma once

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPointer>
#include <QSize>
#include <functional>
#include <optional>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

#include "look/menu_item_painter.h"
#include "look/menu_look.h"
#include "look/spawn_item.h"

namespace quorbit {

class CMenuSpawn {
public:
    CMenuSpawn();
    virtual ~CMenuSpawn() = default;

    // Takes the pictures of a toolbar over: its commands from left to right, 0 for a separator,
    // which takes no picture index. False if none of the commands has a picture.
    bool LoadToolBar(std::span<const int> commands, const std::function<QIcon(int)>& pictureOf);
    void AddImageMapEntry(int nImage, int nCommand);
    // The index of the first pair with this command, else -1.
    [[nodiscard]] int FindImage(int nCommand) const;

    // Gives the entry of an action its item, or brings the one that it has up to date. nCommand may
    // be a kind.
    const SpawnItem& AddSpawnItem(const QAction& action, const QString& text, int nCommand);

    // Gives every entry its item, also in submenus; the number of an entry's command is the data of
    // its action. An entry that has one keeps it, brought up to date. Items of actions that are
    // gone are given back.
    void RemapMenu(const QMenuBar& bar);
    void RemapMenu(const QMenu& menu);

    // Null if the action is not an entry that was remapped.
    [[nodiscard]] const SpawnItem* ItemOf(const QAction* action) const;
    // nItem: a position among all actions, or the number of a command.
    [[nodiscard]] bool IsSpawnItem(const QMenu& menu, int nItem, bool byPosition) const;

    // Device-independent pixels. An entry of the bar gets the size of its text and no more.
    [[nodiscard]] QSize MeasureItem(const SpawnItem& item, const MenuLook& look) const;
    // own: the picture to show if the command has none of the toolbar's; may be null.
    void DrawItem(QPainter& painter, const MenuLook& look, const SpawnItem& item,
                  const MenuItemState& state, const QIcon& own = {}) const;

    // The position, among all actions, of the last visible entry that is marked with the letter.
    [[nodiscard]] std::optional<int> FindKeyboardShortcut(QChar letter, const QMenu& menu) const;

private:
    struct Entry {
        QPointer<const QAction> action;  // another action may get the address of one that is gone
        SpawnItem item;
    };

    void RemapActions(const QList<QAction*>& actions, int nKindOfSubmenu);
    void DropDeadEntries();

    QIcon m_imageCheck;
    std::vector<QIcon> m_imageToolbar;
    std::vector<std::pair<int, int>> m_imageMap;  // index and command
    std::unordered_map<const QAction*, Entry> m_entries;
};

}  // namespace quorbit
