// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/splash_wnd.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QTest>

#include "look/pictures.h"

namespace quorbit {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLong{60000};

class SplashTest : public testing::Test {
protected:
    SplashTest() { edit.show(); }
    void Activate()
    {
        edit.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&edit));
    }
    // Shows a splash window; true if what is done ends it at once.
    template <class Act>
    bool Ends(Act act)
    {
        const auto splash = CMySplashWnd::Create(Picture("splash"), kLong);
        EXPECT_TRUE(splash && splash->isVisible());
        Activate();
        act();
        const bool gone = splash.isNull() || !splash->isVisible();
        if (!splash.isNull()) {
            splash->End();
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return splash.isNull(); })) << "it deletes itself";
        return gone;
    }

    QLineEdit edit;
};

TEST_F(SplashTest, StandsInTheMiddleUntilItsTimeIsOver)
{
    const auto splash = CMySplashWnd::Create(Picture("splash"), milliseconds(50));
    ASSERT_TRUE(splash);
    EXPECT_TRUE(splash->windowFlags() & Qt::WindowStaysOnTopHint);
    const QPoint off = splash->geometry().center() - splash->screen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return splash.isNull(); }));
    EXPECT_TRUE(CMySplashWnd::Create(QIcon(), kLong).isNull()) << "no picture, no window";
}

TEST_F(SplashTest, AnyKeyOrButtonEndsItAndIsSwallowed)
{
    int fired = 0;
    QShortcut shortcut(QKeySequence(Qt::Key_F9), &edit);
    QObject::connect(&shortcut, &QShortcut::activated, &edit, [&fired] { ++fired; });

    EXPECT_TRUE(Ends([this] { QTest::keyClick(edit.windowHandle(), Qt::Key_A); }));
    EXPECT_EQ(edit.text().toStdString(), "");
    EXPECT_TRUE(Ends([this] { QTest::keyClick(edit.windowHandle(), Qt::Key_F9); }));
    EXPECT_EQ(fired, 0);
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        EXPECT_TRUE(Ends([&] { QTest::mousePress(edit.windowHandle(), button); })) << int(button);
        QTest::mouseRelease(edit.windowHandle(), button);
    }
    EXPECT_FALSE(Ends([this] { QTest::mouseMove(edit.windowHandle(), QPoint(3, 3)); }));

    Activate();
    QTest::keyClick(edit.windowHandle(), Qt::Key_B);
    QTest::keyClick(edit.windowHandle(), Qt::Key_F9);
    EXPECT_EQ(edit.text().toStdString(), "b") << "the next key is an ordinary one";
    EXPECT_EQ(fired, 1);
}

}  // namespace
}  // namespace quorbit
