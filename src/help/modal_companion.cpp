// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/modal_companion.h"

#include <QApplication>
#include <QEvent>
#include <QWindow>

namespace quorbit {

ModalCompanion::ModalCompanion(QWidget& window) : m_window(window)
{
    qApp->installEventFilter(this);
}

void ModalCompanion::BeforeShow()
{
    (void)m_window.winId();  // creates the native window, which has the transient parent
    if (QWidget* dialog = QApplication::activeModalWidget()) {
        Join(*dialog, true);
    }
}

bool ModalCompanion::eventFilter(QObject* watched, QEvent* event)
{
    const bool opens = event->type() == QEvent::Show;
    if ((opens || event->type() == QEvent::Hide) && watched->isWidgetType()) {
        auto* window = static_cast<QWidget*>(watched);
        if (window != &m_window && window->isWindow() && window->isModal()) {
            Join(*window, opens);
        }
    }
    return false;
}

void ModalCompanion::Join(QWidget& dialog, bool opens)
{
    QWindow* handle = m_window.windowHandle();
    QWindow* other = dialog.windowHandle();
    // A dialog of the window itself may block it, and is already its child.
    if (handle == nullptr || other == nullptr ||
        handle->isAncestorOf(other, QWindow::IncludeTransients)) {
        return;
    }
    if (opens) {
        handle->setTransientParent(other);
    } else if (handle->transientParent() == other) {
        // A nested dialog has closed: return to the dialog below it, if there is one.
        handle->setTransientParent(other->transientParent());
    }
}

}  // namespace quorbit
