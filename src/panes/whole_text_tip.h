// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Shows a text that is cut in a pane as a tool tip. User interface thread only.

#pragma once

#include <QHelpEvent>
#include <QRect>
#include <QString>
#include <QWidget>

namespace quorbit {

// Returns a text for QToolTip that is shown as it is, never as rich text, in lines of at most 100
// characters: a path has no blanks at which Qt could wrap it.
[[nodiscard]] QString TipText(const QString& text);

// Shows `text` while the mouse is in `cell` (coordinates of the viewport); an empty text hides the
// tool tip.
void ShowWholeText(const QHelpEvent& event, QWidget& viewport, const QRect& cell,
                   const QString& text);

}  // namespace quorbit
