// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Gives every menu of the program the owner-drawn look, also those that open by themselves such as
// a pane's, and feeds CMenuSpawn with what they report. User interface thread only.

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
    // spawn must outlive this object. onMenuLoop is told when the first menu opens (true) and when
    // the last one is gone (false), and the same for a bar that is used by keys.
    MenuAdopter(CMenuSpawn& spawn, std::function<void(bool)> onMenuLoop);
    ~MenuAdopter() override;

    // Menus come by themselves; a bar is brought.
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
