// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/spawn_frame_wnd.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

namespace quorbit {
namespace {

class SpawnFrameTest : public testing::Test {
protected:
    SpawnFrameTest()
    {
        file = frame->menuBar()->addMenu(QStringLiteral("&File"));
        edit = frame->menuBar()->addMenu(QStringLiteral("&Edit"));
        for (const char* text : {"&Same\tF2", "&Other", "&Same again"}) {
            QAction* action = file->addAction(QLatin1String(text));
            QObject::connect(action, &QAction::triggered, action,
                             [this, text] { chosen.emplace_back(text); });
        }
        edit->addAction(QStringLiteral("&Only"));
        frame->setCentralWidget(new QWidget);
        frame->resize(400, 300);
        frame->show();
        frame->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(frame.get()));
    }
    ~SpawnFrameTest() override
    {
        frame.reset();
        QCursor::setPos(0, 0);
    }

    std::unique_ptr<CSpawnFrameWnd> frame = std::make_unique<CSpawnFrameWnd>();
    QMenu* file = nullptr;
    QMenu* edit = nullptr;
    std::vector<std::string> chosen;
};

TEST_F(SpawnFrameTest, ChoosesTheLastEntryOfALetter)
{
    QTest::keyClick(frame.get(), Qt::Key_F10);
    ASSERT_TRUE(file->isVisible());
    QTest::keyClick(file, Qt::Key_X);
    EXPECT_TRUE(file->isVisible()) << "no entry has this letter";
    file->actions()[1]->setEnabled(false);
    QTest::keyClick(file, Qt::Key_O);
    EXPECT_TRUE(file->isVisible()) << "a disabled entry does nothing";
    EXPECT_TRUE(chosen.empty());
    QTest::keyClick(file, Qt::Key_S);
    EXPECT_FALSE(file->isVisible());
    QTest::keyClick(frame.get(), Qt::Key_F, Qt::AltModifier);
    ASSERT_TRUE(file->isVisible());
    QTest::keyClick(file, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(chosen, (std::vector<std::string>{"&Same again", "&Same again"}));
}

TEST_F(SpawnFrameTest, DrawsMenusThatOpenByThemselvesTheSameWay)
{
    auto menu = std::make_unique<QMenu>();
    QAction* action = menu->addAction(QStringLiteral("&Entry\tF9"));
    menu->popup(frame->mapToGlobal(QPoint(50, 50)));
    EXPECT_NE(frame->MenuSpawn().ItemOf(action), nullptr);
    EXPECT_TRUE(frame->InMenuLoop());
    frame.reset();
    EXPECT_EQ(menu->style(), QApplication::style()) << "it outlives the window that drew it";
}

}  // namespace
}  // namespace quorbit
