// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Drives windows and dialogs in tests. User interface thread only.

#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <functional>

namespace quorbit {

// Processes events until the condition holds. Returns false after 30 seconds.
[[nodiscard]] inline bool Until(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 30'000);
}

// Processes pending events, and the events that they post, up to five rounds.
inline void Serve()
{
    for (int round = 0; round < 5; ++round) {
        QApplication::processEvents();
    }
}

// Calls `act` with the next modal dialog of the class that opens above the current one, once
// `ready` returns true (may be null). If the dialog is still open 20 seconds later, fails the test
// and cancels the dialog.
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
