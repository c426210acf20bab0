// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Keeps a window usable while a modal dialog is open. A modal dialog blocks every window that does
// not belong to it; the companion makes the window belong to the dialog from before that is shown
// until it is gone. User interface thread only.

#pragma once

#include <QObject>
#include <QWidget>

namespace quorbit {

class ModalCompanion final : public QObject {
public:
    // Watches the whole application. window is a top-level window and must outlive this object.
    explicit ModalCompanion(QWidget& window);

    // Call it before the window is shown: a dialog may be open already.
    void BeforeShow();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Join(QWidget& dialog, bool opens);

    QWidget& m_window;
};

}  // namespace quorbit
