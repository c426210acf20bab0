// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Hands for windows. User interface thread only.

#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <functional>

namespace quorbit {

// Serves events until the condition holds. False if it does not within half a minute.
[[nodiscard]] inline bool Until(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 30'000);
}

// Serves what is pending, and what that posts in turn.
inline void Serve()
{
    for (int round = 0; round < 5; ++round) {
        QApplication::processEvents();
    }
}

// Acts in the next dialog of the class that opens over what is open now, once it is ready (ready
// may be null). A failure if the dialog then stays open; it is cancelled.
template <class Dialog>
void InNext(std::function<void(Dialog&)> act, std::function<bool(Dialog&)> ready = nullptr)
{
    const QWidget* below = QApplication::activeModalWidget();
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog == below || (ready && !ready(*dialog))) {
            return;
        }
        timer->stop();
        timer->deleteLater();
        QTimer::singleShot(20'000, dialog, [dialog] {
            if (dialog->isVisible()) {
                ADD_FAILURE() << "left open: " << dialog->windowTitle().toStdString();
                dialog->reject();
            }
        });
        act(*dialog);
    });
    timer->start(1);
}
inline void InNextDialog(std::function<void(QDialog&)> act,
                         std::function<bool(QDialog&)> ready = nullptr)
{
    InNext<QDialog>(std::move(act), std::move(ready));
}

}  // namespace quorbit
