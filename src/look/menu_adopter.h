// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Applies the owner-drawn look to all menus of the program, including the context menus of the
// panes, and keeps CMenuSpawn up to date when their actions change. User interface thread only.

#pragma once

#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QObject>
#include <functional>

#include "look/menu_spawn.h"
#include "look/spawn_menu_style.h"

namespace quorbit {

class MenuAdopter : public QObject {
public:
    // spawn must outlive this object. Calls onMenuLoop(true) when a menu opens or an adopted bar
    // gets the focus, and onMenuLoop(false) once no menu is open and no menu bar has the focus.
    MenuAdopter(CMenuSpawn& spawn, std::function<void(bool)> onMenuLoop);
    ~MenuAdopter() override;

    // Menus are adopted automatically; a menu bar has to be passed here. Not owned.
    void Adopt(QMenuBar& bar);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Adopt(QMenu& menu);
    void OnBarEvent(const QMenuBar& bar, const QEvent& event);
    bool OnMenuEvent(QMenu& menu, QEvent& event);
    bool OnKey(QMenu& menu, const QKeyEvent& event);
    void LeaveMenuLoop();

    CMenuSpawn& m_spawn;
    std::function<void(bool)> m_onMenuLoop;
    SpawnMenuStyle m_style;
};

}  // namespace quorbit
