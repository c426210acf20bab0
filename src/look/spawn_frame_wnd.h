// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A main window with owner-drawn menus that highlights the menu bar entry under the mouse. User
// interface thread only.

#pragma once

#include <QMainWindow>
#include <QPoint>
#include <QRect>
#include <QTimer>

#include "look/menu_adopter.h"
#include "look/menu_spawn.h"
#include "look/spawn_menu_bar.h"

namespace quorbit {

class CSpawnFrameWnd : public QMainWindow {
public:
    explicit CSpawnFrameWnd(QWidget* parent = nullptr);

    [[nodiscard]] CMenuSpawn& MenuSpawn() { return m_menuSpawn; }
    // Returns the rectangle of the highlighted entry in window coordinates; empty if there is none.
    [[nodiscard]] const QRect& HotRect() const { return m_rcHot; }
    // Returns true while a menu is open or the menu bar has the focus.
    [[nodiscard]] bool InMenuLoop() const { return m_bInMenuLoop; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void OnMenuLoop(bool entered);
    void HitTest(QPoint global);
    void RemoveLight();
    void OpenFirstMenu();

    CMenuSpawn m_menuSpawn;
    QRect m_rcHot;
    bool m_bInMenuLoop = false;
    QTimer m_hotTimer;
    SpawnMenuBar* m_bar;  // owned by the window
    MenuAdopter m_adopter;
};

}  // namespace quorbit
