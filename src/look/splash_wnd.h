// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The picture that stands over everything for a moment while the program starts. User interface
// thread only.

#pragma once

#include <QIcon>
#include <QPointer>
#include <QWidget>
#include <chrono>

namespace quorbit {

class CMySplashWnd : public QWidget {
public:
    // Shows the window in the middle of the screen and paints it at once. It goes away, and deletes
    // itself, when the time is over, when the program leaves its event loop, or at the first key or
    // mouse button that is pressed anywhere in the program, which then has no other effect.
    // picture: 12 to 7. Null if there is no picture.
    static QPointer<CMySplashWnd> Create(const QIcon& picture, std::chrono::milliseconds duration);

    // Takes the window away at once; the object follows once the event loop is free.
    void End();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    explicit CMySplashWnd(QIcon picture);

    QIcon m_picture;
};

}  // namespace quorbit
