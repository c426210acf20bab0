// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Keys that the panes handle themselves. Pure functions.

#pragma once

#include <QKeyEvent>

namespace quorbit {

// Shift+F10. The menu key itself arrives as a QContextMenuEvent.
[[nodiscard]] inline bool IsMenuKey(const QKeyEvent& event)
{
    return event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
}

// Enter on either side of the keyboard.
[[nodiscard]] inline bool IsOpenKey(const QKeyEvent& event)
{
    return (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) &&
           (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

// Backspace or Alt+Up: to the parent folder.
[[nodiscard]] inline bool IsParentKey(const QKeyEvent& event)
{
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return (event.key() == Qt::Key_Backspace && modifiers == Qt::NoModifier) ||
           (event.key() == Qt::Key_Up && modifiers == Qt::AltModifier);
}

}  // namespace quorbit
