// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Measures and draws the entries of the program's menus, with the pictures of the toolbar and its
// own check mark. User interface thread only.

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

    // Adds the pictures of a toolbar. commands: from left to right, 0 for a separator, which gets
    // no picture index. Returns false if no command has a picture.
    bool LoadToolBar(std::span<const int> commands, const std::function<QIcon(int)>& pictureOf);
    void AddImageMapEntry(int nImage, int nCommand);
    // Returns the picture index of the first pair with this command, or -1.
    [[nodiscard]] int FindImage(int nCommand) const;

    // Creates or updates the item of an action. nCommand is a command number or a kind (SPAWN_...).
    // The reference is valid until the first RemapMenu after the action is destroyed.
    const SpawnItem& AddSpawnItem(const QAction& action, const QString& text, int nCommand);

    // Creates or updates the items of all entries, including those of submenus. The data of an
    // action is its command number. Drops the items of destroyed actions.
    void RemapMenu(const QMenuBar& bar);
    void RemapMenu(const QMenu& menu);

    // Returns null if the action has no item.
    [[nodiscard]] const SpawnItem* ItemOf(const QAction* action) const;
    // Returns true if the entry has an item. nItem: a position among all actions if byPosition,
    // otherwise a command number.
    [[nodiscard]] bool IsSpawnItem(const QMenu& menu, int nItem, bool byPosition) const;

    // In device-independent pixels. For an entry of the menu bar, only the size of its text.
    [[nodiscard]] QSize MeasureItem(const SpawnItem& item, const MenuLook& look) const;
    // own: the picture to use if the toolbar has none for the command; may be null.
    void DrawItem(QPainter& painter, const MenuLook& look, const SpawnItem& item,
                  const MenuItemState& state, const QIcon& own = {}) const;

    // Returns the position, among all actions, of the last visible entry with this mnemonic.
    // Ignores case.
    [[nodiscard]] std::optional<int> FindKeyboardShortcut(QChar letter, const QMenu& menu) const;

private:
    struct Entry {
        QPointer<const QAction> action;  // a new action may reuse the address of an old one
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
