// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/drag_gesture.h"

#include <QApplication>
#include <QDrag>
#include <utility>

namespace quorbit {

void DragGesture::Press(const QMouseEvent& event)
{
    const bool drags = event.button() == Qt::LeftButton || event.button() == Qt::RightButton;
    m_button = drags ? event.button() : Qt::NoButton;
    m_start = event.position().toPoint();
}

Qt::MouseButton DragGesture::Move(const QMouseEvent& event)
{
    if (m_button == Qt::NoButton || !event.buttons().testFlag(m_button)) {
        return Qt::NoButton;
    }
    const QPoint way = event.position().toPoint() - m_start;
    return way.manhattanLength() >= QApplication::startDragDistance()
               ? std::exchange(m_button, Qt::NoButton)
               : Qt::NoButton;
}

bool DragGesture::Release(const QMouseEvent& event)
{
    return event.button() != Qt::NoButton &&
           event.button() == std::exchange(m_button, Qt::NoButton);
}

void RunDrag(QWidget& source, const DragContent& content, Qt::MouseButton button)
{
    auto* drag = new QDrag(&source);  // Qt deletes it when the drag is over
    drag->setMimeData(MakeDragData(content, button).release());
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
}

}  // namespace quorbit
