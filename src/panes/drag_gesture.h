// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The beginning of a drag with the left or the right button: pressed on an item, then moved far
// enough. User interface thread only.

#pragma once

#include <QMouseEvent>
#include <QPoint>
#include <QWidget>
#include <functional>
#include <string>

namespace quorbit {

class DragGesture {
public:
    void Press(const QMouseEvent& event);
    // The button that was pressed, when the drag with it is to begin: once a press, and letting go
    // is no click then. NoButton otherwise.
    [[nodiscard]] Qt::MouseButton Move(const QMouseEvent& event);
    // Whether this button was pressed and no drag came of it: a click.
    [[nodiscard]] bool Release(const QMouseEvent& event);
    void Cancel() { m_button = Qt::NoButton; }

    // Where a button was pressed last.
    [[nodiscard]] QPoint Start() const { return m_start; }

private:
    Qt::MouseButton m_button = Qt::NoButton;
    QPoint m_start;
};

// Carries a payload of drag_payload until it is dropped or cancelled; returns then.
using DragRunner = std::function<void(QWidget&, const std::string&, Qt::MouseButton)>;
void RunDrag(QWidget& source, const std::string& payload, Qt::MouseButton button);

}  // namespace quorbit
