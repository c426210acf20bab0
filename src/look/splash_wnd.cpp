// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/splash_wnd.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QScreen>
#include <QThread>
#include <QTimer>
#include <QWindow>
#include <utility>

namespace quorbit {
namespace {

// In lines of text, with the aspect ratio of the picture.
constexpr QSize kLines{36, 21};

// Waits until the window is on the screen, since anything painted earlier is lost, then paints it.
// Gives up waiting after kPatience, so that a slow display does not delay the start.
void PaintNow(QWidget& window)
{
    constexpr std::chrono::milliseconds kPatience{300};
    QElapsedTimer timer;
    timer.start();
    do {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
        QThread::msleep(1);
    } while (!window.windowHandle()->isExposed() && timer.elapsed() < kPatience.count());
    window.repaint();
}

}  // namespace

QPointer<CMySplashWnd> CMySplashWnd::Create(const QIcon& picture,
                                            std::chrono::milliseconds duration)
{
    if (picture.isNull()) {
        return nullptr;
    }
    QPointer<CMySplashWnd> window(new CMySplashWnd(picture));
    window->show();
    PaintNow(*window);
    QTimer::singleShot(duration, window, [window] { window->End(); });
    return window;
}

CMySplashWnd::CMySplashWnd(QIcon picture)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      m_picture(std::move(picture))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    const QRect place = screen()->availableGeometry();
    setFixedSize((kLines * fontMetrics().height()).boundedTo(place.size()));
    move(place.center() - rect().center());
    qApp->installEventFilter(this);
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { End(); });
}

void CMySplashWnd::End()
{
    qApp->removeEventFilter(this);
    close();
}

bool CMySplashWnd::eventFilter(QObject*, QEvent* event)
{
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            // Accept it, so that the key press that follows does not trigger a shortcut.
            event->accept();
            return true;
        case QEvent::KeyPress:
        case QEvent::MouseButtonPress:
            End();
            return true;
        default:
            return false;
    }
}

void CMySplashWnd::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    m_picture.paint(&painter, rect());
}

}  // namespace quorbit
