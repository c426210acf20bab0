// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Keeps a window usable while a modal dialog is open. A modal dialog blocks all windows except its
// children, so this class makes the dialog the transient parent of the window while the dialog is
// shown. User interface thread only.

#pragma once

#include <QObject>
#include <QWidget>

namespace quorbit {

class ModalCompanion final : public QObject {
public:
    // Watches the whole application. window is a top-level window and must outlive this object.
    explicit ModalCompanion(QWidget& window);

    // Call it before the window is shown, in case a dialog is already open.
    void BeforeShow();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Join(QWidget& dialog, bool opens);

    QWidget& m_window;
};

}  // namespace quorbit
