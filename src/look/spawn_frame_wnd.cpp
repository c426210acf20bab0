// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/spawn_frame_wnd.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QMouseEvent>

namespace quorbit {
namespace {

constexpr int kHotInterval = 100;  // ms

}  // namespace

CSpawnFrameWnd::CSpawnFrameWnd(QWidget* parent)
    : QMainWindow(parent),
      m_bar(new SpawnMenuBar(this)),
      m_adopter(m_menuSpawn, [this](bool entered) { OnMenuLoop(entered); })
{
    setMenuBar(m_bar);
    m_adopter.Adopt(*m_bar);
    m_bar->installEventFilter(this);
    auto* key = new QAction(this);
    key->setShortcut(QKeySequence(Qt::Key_F10));
    connect(key, &QAction::triggered, this, [this] { OpenFirstMenu(); });
    addAction(key);
    // Qt does not always send an event when the mouse leaves the window or another window covers
    // the bar, so poll the position as well.
    connect(&m_hotTimer, &QTimer::timeout, this, [this] { HitTest(QCursor::pos()); });
    m_hotTimer.start(kHotInterval);
}

void CSpawnFrameWnd::OpenFirstMenu()
{
    for (QAction* action : m_bar->actions()) {
        if (action->menu() != nullptr && action->isEnabled() && action->isVisible()) {
            m_bar->setActiveAction(action);
            action->menu()->setActiveAction(action->menu()->actions().value(0));
            return;
        }
    }
}

// --- hot-tracking -------------------------------------------------------------------------------

bool CSpawnFrameWnd::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_bar) {
        if (event->type() == QEvent::MouseMove) {
            HitTest(static_cast<const QMouseEvent*>(event)->globalPosition().toPoint());
        } else if (event->type() == QEvent::Leave || event->type() == QEvent::Resize) {
            RemoveLight();
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void CSpawnFrameWnd::OnMenuLoop(bool entered)
{
    if (entered) {
        RemoveLight();
    }
    m_bInMenuLoop = entered;
}

void CSpawnFrameWnd::HitTest(QPoint global)
{
    if (m_bInMenuLoop || QApplication::activeModalWidget() != nullptr ||
        QApplication::widgetAt(global) != m_bar) {
        RemoveLight();
        return;
    }
    QAction* action = m_bar->actionAt(m_bar->mapFromGlobal(global));
    if (action == nullptr) {
        return;
    }
    if (m_menuSpawn.ItemOf(action) == nullptr) {
        RemoveLight();
        return;
    }
    const QRect rect = m_bar->actionGeometry(action);
    m_rcHot = QRect(m_bar->mapTo(this, rect.topLeft()), rect.size());
    m_bar->SetLight(rect);
}

void CSpawnFrameWnd::RemoveLight()
{
    m_rcHot = {};
    m_bar->SetLight({});
}

}  // namespace quorbit
