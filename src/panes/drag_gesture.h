// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Recognises clicks and drags of the left and the right mouse button. A drag starts when the mouse
// moves at least QApplication::startDragDistance() from the press. User interface thread only.

#pragma once

#include <QMouseEvent>
#include <QPoint>
#include <QWidget>
#include <functional>

#include "panes/drag_payload.h"

namespace quorbit {

class DragGesture {
public:
    // Other buttons start nothing.
    void Press(const QMouseEvent& event);
    // Returns the pressed button when a drag starts, once per press; its release is then not a
    // click. Returns NoButton otherwise.
    [[nodiscard]] Qt::MouseButton Move(const QMouseEvent& event);
    // Returns true if this button was pressed and no drag has started: a click.
    [[nodiscard]] bool Release(const QMouseEvent& event);
    void Cancel() { m_button = Qt::NoButton; }

    // Position of the last press, in the coordinates of the widget.
    [[nodiscard]] QPoint Start() const { return m_start; }

private:
    Qt::MouseButton m_button = Qt::NoButton;
    QPoint m_start;
};

// Runs a drag. Blocks until it is dropped or cancelled.
using DragRunner = std::function<void(QWidget&, const DragContent&, Qt::MouseButton)>;
void RunDrag(QWidget& source, const DragContent& content, Qt::MouseButton button);

}  // namespace quorbit
