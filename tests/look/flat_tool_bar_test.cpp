// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/flat_tool_bar.h"

#include <gtest/gtest.h>

#include <QMainWindow>
#include <QMenu>
#include <QStyleOption>
#include <QTest>
#include <QTimer>

#include "look/edges.h"

namespace quorbit {
namespace {

// Counts how often what it watches is painted.
class PaintCounter : public QObject {
public:
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

class FlatToolBarTest : public testing::Test {
protected:
    FlatToolBarTest()
    {
        bar->SetFlatLook();
        Add("New", 500);
        gap = bar->addSeparator();
        Add("A long label", 501);
        Add("Views", 502)->setMenu(&menu);
        menu.addAction(QStringLiteral("One"));
        window.addToolBar(bar);
        window.resize(500, 400);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    QAction* Add(const char* text, int nId)
    {
        QAction* action = bar->addAction(QLatin1String(text));
        action->setData(nId);
        return action;
    }
    void Dock(Qt::ToolBarArea area)
    {
        window.addToolBar(area, bar);
        Settle();
    }
    static void Settle() { QTest::qWait(50); }

    // Pixels of the edges' colours in an area of the bar.
    [[nodiscard]] int Edges(const QRect& area)
    {
        const EdgeColors colors = EdgeColors::From(bar->palette());
        const QImage image = bar->grab(area).toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb pixel = image.pixel(x, y);
                count += pixel == colors.light.rgb() || pixel == colors.dark.rgb() ? 1 : 0;
            }
        }
        return count;
    }
    [[nodiscard]] QRect Handle()
    {
        QStyleOptionToolBar option;
        option.initFrom(bar);
        option.features = QStyleOptionToolBar::Movable;
        if (bar->orientation() == Qt::Horizontal) {
            option.state |= QStyle::State_Horizontal;
        }
        return bar->style()->subElementRect(QStyle::SE_ToolBarHandle, &option, bar);
    }

    QMenu menu;
    QMainWindow window;
    CFlatToolBar* bar = new CFlatToolBar(QStringLiteral("Toolbar"), &window);
    QAction* gap = nullptr;
};

TEST_F(FlatToolBarTest, HasAGripperOnEachSideAndNoneWhileItFloats)
{
    for (const Qt::ToolBarArea area :
         {Qt::LeftToolBarArea, Qt::RightToolBarArea, Qt::BottomToolBarArea, Qt::TopToolBarArea}) {
        Dock(area);
        const bool lying = bar->orientation() == Qt::Vertical;
        const QRect handle = Handle();
        EXPECT_EQ(lying ? handle.height() : handle.width(), 10) << area;
        EXPECT_GT(Edges(handle), 3 * (lying ? handle.width() : handle.height())) << area;
    }
    const int docked = bar->Button(500)->x();
    bar->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    bar->show();
    Settle();
    ASSERT_TRUE(bar->isFloating());
    EXPECT_LT(bar->Button(500)->x(), docked) << "the room is gone, too";
    EXPECT_EQ(Handle(), bar->rect()) << "it is moved by any free place";
    // Two ridges would show four lines, the frame of the bar shows one.
    EXPECT_LT(Edges(QRect(1, 6, bar->Button(500)->x() - 1, bar->height() - 12)), 2 * bar->height());
}

TEST_F(FlatToolBarTest, DrawsASeparatorAsAGrooveAcrossTheBarUnlessItIsWide)
{
    const QWidget* groove = bar->widgetForAction(gap);
    EXPECT_EQ(groove->width(), 8);
    EXPECT_EQ(Edges(groove->geometry()), 2 * groove->height());
    Dock(Qt::LeftToolBarArea);
    EXPECT_EQ(groove->height(), 8);
    EXPECT_EQ(Edges(groove->geometry()), 2 * groove->width());

    for (const int room : {8, 9}) {
        QImage image(room, 20, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        const QImage before = image;
        QStyleOption option;
        option.rect = image.rect();
        option.state = QStyle::State_Horizontal;
        {
            QPainter painter(&image);
            bar->style()->drawPrimitive(QStyle::PE_IndicatorToolBarSeparator, &option, &painter,
                                        nullptr);
        }
        EXPECT_EQ(image == before, room > 8);
    }
}

TEST_F(FlatToolBarTest, ShowsEachLabelWholeAndGivesAShortOneRoomInAnyFont)
{
    for (const int points : {8, 30}) {
        QFont font = bar->font();
        font.setPointSize(points);
        bar->setFont(font);
        Settle();
        for (const int nId : {500, 501}) {
            const QToolButton* button = bar->Button(nId);
            EXPECT_GE(button->minimumWidth(), button->sizeHint().width());
            EXPECT_GE(button->minimumHeight(), button->sizeHint().height());
            EXPECT_GE(button->minimumWidth(), 7 * bar->fontMetrics().averageCharWidth());
            EXPECT_GT(button->minimumHeight(), 16 + bar->fontMetrics().height());
        }
        EXPECT_GT(bar->Button(500)->minimumWidth(), bar->Button(500)->sizeHint().width());
    }
}

TEST_F(FlatToolBarTest, OpensTheMenuAtTheBottomLeftCornerOfTheButton)
{
    EXPECT_FALSE(bar->SetButtonDropDown(999));
    ASSERT_TRUE(bar->SetButtonDropDown(502));
    for (const Qt::ToolBarArea area : {Qt::TopToolBarArea, Qt::LeftToolBarArea}) {
        Dock(area);
        QToolButton* button = bar->Button(502);
        QPoint place;
        QTimer::singleShot(200, &menu, [this, &place] {
            place = menu.pos();
            menu.close();
        });
        QTest::mouseClick(button, Qt::LeftButton, {}, {button->width() - 4, button->height() / 2});
        EXPECT_EQ(place, button->mapToGlobal(QPoint(0, button->height()))) << area;
    }
}

TEST_F(FlatToolBarTest, IsPaintedAnewOnlyWhenTheStateOfAButtonChanges)
{
    QAction* action = bar->Button(500)->defaultAction();
    PaintCounter counter;
    bar->Button(500)->installEventFilter(&counter);
    action->setCheckable(true);
    Settle();
    counter.count = 0;
    action->setEnabled(true);
    action->setChecked(false);
    Settle();
    EXPECT_EQ(counter.count, 0);
    action->setChecked(true);
    Settle();
    EXPECT_GT(counter.count, 0);
    EXPECT_TRUE(bar->Button(500)->isChecked());
}

}  // namespace
}  // namespace quorbit
