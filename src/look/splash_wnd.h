// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The splash window, shown for a moment while the program starts. User interface thread only.

#pragma once

#include <QIcon>
#include <QPointer>
#include <QWidget>
#include <chrono>

namespace quorbit {

class CMySplashWnd : public QWidget {
public:
    // Shows the window in the middle of the screen and paints it before returning, which may take
    // up to 300 ms. The window closes and deletes itself after `duration`, when the event loop
    // ends, or on the first key or mouse press anywhere in the program, which then has no other
    // effect. picture: aspect ratio 12:7. Returns null if the picture is null.
    static QPointer<CMySplashWnd> Create(const QIcon& picture, std::chrono::milliseconds duration);

    // Closes the window at once; the event loop deletes the object later.
    void End();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    explicit CMySplashWnd(QIcon picture);

    QIcon m_picture;
};

}  // namespace quorbit
