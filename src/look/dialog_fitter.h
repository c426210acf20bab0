// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Makes dialogs scroll that do not fit the screen, as with large fonts on a small screen. User
// interface thread only.

#pragma once

#include <QDialog>
#include <QObject>

namespace quorbit {

// Moves the content of the dialog into a scroll area if it needs more space than the screen has.
// Keeps the tab order. The dialog must have its controls and must not have been shown.
void FitToScreen(QDialog& dialog);

// An event filter for the application: fits every dialog, except message boxes and file dialogs of
// Qt, before it is first shown.
class DialogFitter final : public QObject {
protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quorbit
