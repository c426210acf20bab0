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

    [[nodiscard]] QRect Place(const QMenu* menu) const
    {
        const QRect rect = frame->menuBar()->actionGeometry(menu->menuAction());
        return {frame->menuBar()->mapTo(frame.get(), rect.topLeft()), rect.size()};
    }
    void MoveTo(QPoint place) const { QTest::mouseMove(frame.get(), place); }
    // The colour at the corner of an entry of the bar.
    [[nodiscard]] QRgb Corner(const QMenu* menu) const
    {
        return frame->grab().toImage().pixel(Place(menu).topLeft());
    }

    std::unique_ptr<CSpawnFrameWnd> frame = std::make_unique<CSpawnFrameWnd>();
    QMenu* file = nullptr;
    QMenu* edit = nullptr;
    std::vector<std::string> chosen;
};

TEST_F(SpawnFrameTest, LightsTheEntryUnderTheMouse)
{
    const EdgeColors edge = EdgeColors::From(frame->palette());
    EXPECT_TRUE(frame->HotRect().isEmpty());
    MoveTo(Place(file).center());
    EXPECT_EQ(frame->HotRect(), Place(file));
    EXPECT_EQ(Corner(file), edge.light.rgb());
    EXPECT_NE(Corner(edit), edge.light.rgb());
    MoveTo(Place(edit).center());
    EXPECT_EQ(frame->HotRect(), Place(edit));
    EXPECT_NE(Corner(file), edge.light.rgb());
    MoveTo({frame->width() - 5, Place(edit).center().y()});
    EXPECT_EQ(frame->HotRect(), Place(edit)) << "beside the entries the light stays";
    MoveTo(frame->centralWidget()->geometry().center());
    EXPECT_TRUE(frame->HotRect().isEmpty());
    EXPECT_NE(Corner(edit), edge.light.rgb());
}

TEST_F(SpawnFrameTest, TakesTheLightAwayWhenTheMouseIsGoneWithoutAWord)
{
    MoveTo(Place(file).center());
    ASSERT_FALSE(frame->HotRect().isEmpty());
    QCursor::setPos(frame->mapToGlobal(QPoint(10, frame->height() + 50)));
    EXPECT_TRUE(QTest::qWaitFor([this] { return frame->HotRect().isEmpty(); }));
}

TEST_F(SpawnFrameTest, LightsNothingWhileAMenuIsOpen)
{
    const EdgeColors edge = EdgeColors::From(frame->palette());
    MoveTo(Place(file).center());
    QTest::mouseClick(frame->menuBar(), Qt::LeftButton, {},
                      frame->menuBar()->actionGeometry(file->menuAction()).center());
    ASSERT_TRUE(file->isVisible());
    EXPECT_TRUE(frame->InMenuLoop());
    EXPECT_EQ(Corner(file), edge.dark.rgb()) << "its entry lies deep";
    QTest::qWait(250);
    EXPECT_TRUE(frame->HotRect().isEmpty());
    file->close();
    EXPECT_FALSE(frame->InMenuLoop());
    EXPECT_TRUE(QTest::qWaitFor([this] { return frame->HotRect() == Place(file); }));
}

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

TEST_F(SpawnFrameTest, FollowsAnotherFontAndPalette)
{
    const auto open = [this] {
        file->popup(frame->mapToGlobal(QPoint(50, 50)));
        const QImage image = file->grab().toImage();
        file->close();
        return image;
    };
    const QImage before = open();
    QFont font = file->font();
    font.setPointSize(3 * font.pointSize());
    file->setFont(font);
    file->setPalette(QPalette(Qt::black));
    const QImage after = open();
    EXPECT_GT(2 * after.height(), 3 * before.height());
    const QPoint ground(5, 5);
    EXPECT_GT(before.pixelColor(ground).lightness(), 128);
    EXPECT_EQ(after.pixel(ground), file->palette().color(QPalette::Window).rgb());
}

}  // namespace
}  // namespace quorbit
