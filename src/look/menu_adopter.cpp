// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/menu_adopter.h"

#include <QApplication>
#include <utility>

#include "look/release_style.h"

namespace quorbit {

MenuAdopter::MenuAdopter(CMenuSpawn& spawn, std::function<void(bool)> onMenuLoop)
    : m_spawn(spawn), m_onMenuLoop(std::move(onMenuLoop)), m_style(spawn)
{
    qApp->installEventFilter(this);
}

MenuAdopter::~MenuAdopter()
{
    ReleaseStyle(m_style);
}

void MenuAdopter::Adopt(QMenuBar& bar)
{
    // The desktop, not Qt, draws a native menu bar.
    bar.setNativeMenuBar(false);
    bar.setStyle(&m_style);
    bar.installEventFilter(this);
    m_spawn.RemapMenu(bar);
}

void MenuAdopter::Adopt(QMenu& menu)
{
    menu.setStyle(&m_style);
    menu.installEventFilter(this);
    m_spawn.RemapMenu(menu);
}

// --- events -------------------------------------------------------------------------------------

// Qt sends Polish once, before a menu is first measured, so adopt it then.
bool MenuAdopter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Polish) {
        auto* menu = qobject_cast<QMenu*>(watched);
        if (menu != nullptr && !menu->testAttribute(Qt::WA_SetStyle)) {
            Adopt(*menu);
        }
        return false;
    }
    auto* const widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || widget->style() != &m_style) {
        return false;
    }
    if (auto* menu = qobject_cast<QMenu*>(widget)) {
        return OnMenuEvent(*menu, *event);
    }
    if (const auto* bar = qobject_cast<QMenuBar*>(widget)) {
        OnBarEvent(*bar, *event);
    }
    return false;
}

void MenuAdopter::OnBarEvent(const QMenuBar& bar, const QEvent& event)
{
    switch (event.type()) {
        case QEvent::ActionAdded:
        case QEvent::ActionChanged:
            m_spawn.RemapMenu(bar);
            break;
        case QEvent::FocusIn:
            m_onMenuLoop(true);
            break;
        case QEvent::FocusOut:
            LeaveMenuLoop();
            break;
        default:
            break;
    }
}

bool MenuAdopter::OnMenuEvent(QMenu& menu, QEvent& event)
{
    switch (event.type()) {
        case QEvent::Show:
            m_spawn.RemapMenu(menu);
            m_onMenuLoop(true);
            break;
        case QEvent::ActionAdded:
        case QEvent::ActionChanged:
            if (menu.isVisible()) {
                m_spawn.RemapMenu(menu);
            }
            break;
        case QEvent::Hide:
            LeaveMenuLoop();
            break;
        case QEvent::KeyPress:
            return OnKey(menu, static_cast<const QKeyEvent&>(event));
        default:
            break;
    }
    return false;
}

void MenuAdopter::LeaveMenuLoop()
{
    if (qobject_cast<QMenu*>(QApplication::activePopupWidget()) == nullptr &&
        qobject_cast<QMenuBar*>(QApplication::focusWidget()) == nullptr) {
        m_onMenuLoop(false);
    }
}

// If several entries have the same mnemonic, QMenu only moves between them; these menus trigger the
// last one.
bool MenuAdopter::OnKey(QMenu& menu, const QKeyEvent& event)
{
    const bool plain = (event.modifiers() & ~(Qt::AltModifier | Qt::ShiftModifier)) == 0;
    if (!plain || event.text().size() != 1 || !event.text()[0].isPrint()) {
        return false;
    }
    const auto position = m_spawn.FindKeyboardShortcut(event.text()[0], menu);
    if (!position) {
        return false;
    }
    QAction* action = menu.actions().at(*position);
    if (action->isEnabled()) {
        menu.setActiveAction(action);
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(&menu, &enter);
    }
    return true;
}

}  // namespace quorbit
