// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/menu_spawn.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QMenu>
#include <QMenuBar>
#include <array>
#include <memory>

namespace quorbit {
namespace {

QIcon OneColour(const QColor& color)
{
    QPixmap pixmap(64, 64);
    pixmap.fill(color);
    return QIcon(pixmap);
}

class MenuSpawnTest : public testing::Test {
protected:
    MenuSpawnTest()
    {
        constexpr std::array kToolBar{500, 0, 501, 0, 0, 502};
        EXPECT_TRUE(spawn.LoadToolBar(kToolBar, [](int) { return OneColour(Qt::red); }));
    }

    static QAction* Add(QMenu& menu, const char* text, int nCommand)
    {
        QAction* action = menu.addAction(QLatin1String(text));
        action->setData(nCommand);
        return action;
    }

    CMenuSpawn spawn;
};

TEST_F(MenuSpawnTest, GivesASeparatorOfTheToolbarNoPicture)
{
    EXPECT_EQ(spawn.FindImage(500), 0);
    EXPECT_EQ(spawn.FindImage(501), 1);
    EXPECT_EQ(spawn.FindImage(502), 2);
    EXPECT_EQ(spawn.FindImage(503), -1);
    EXPECT_EQ(spawn.FindImage(0), -1);
    spawn.AddImageMapEntry(7, 501);
    EXPECT_EQ(spawn.FindImage(501), 1) << "the first pair counts";
    EXPECT_FALSE(CMenuSpawn().LoadToolBar(std::array{500}, [](int) { return QIcon(); }));
}

TEST_F(MenuSpawnTest, GivesEachEntryItsKindAndKeepsItWhenTheMenuOpensAgain)
{
    QMenuBar bar;
    QMenu* file = bar.addMenu(QStringLiteral("&File"));
    QAction* save = Add(*file, "&Save\tCtrl+S", 501);
    QAction* other = Add(*file, "&Other", 503);
    QAction* gap = file->addSeparator();
    QMenu* deeper = file->addMenu(QStringLiteral("&More"));
    QAction* inside = Add(*deeper, "&Inside", 502);
    for (int time = 0; time < 2; ++time) {
        spawn.RemapMenu(bar);
        const SpawnItem* item = spawn.ItemOf(save);
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->nImage, 1);
        EXPECT_EQ(item->nCommand, 501);
        EXPECT_EQ(item->szText, QStringLiteral("&Save\tCtrl+S"));
        EXPECT_EQ(spawn.ItemOf(other)->nImage, -1);
        EXPECT_EQ(spawn.ItemOf(gap)->nCommand, SPAWN_SEPARATOR);
        EXPECT_EQ(spawn.ItemOf(gap)->szText, QStringLiteral("--"));
        EXPECT_EQ(spawn.ItemOf(deeper->menuAction())->nCommand, SPAWN_SUBMENU);
        EXPECT_EQ(spawn.ItemOf(deeper->menuAction())->nImage, SPAWN_SUBMENU);
        EXPECT_EQ(spawn.ItemOf(inside)->nImage, 2);
        EXPECT_EQ(spawn.ItemOf(file->menuAction())->nCommand, SPAWN_BAR);
    }
    const SpawnItem* before = spawn.ItemOf(save);
    save->setText(QStringLiteral("&Keep"));
    spawn.RemapMenu(*file);
    EXPECT_EQ(spawn.ItemOf(save), before);
    EXPECT_EQ(before->szText, QStringLiteral("&Keep"));
    EXPECT_TRUE(spawn.IsSpawnItem(*file, 0, true));
    EXPECT_FALSE(spawn.IsSpawnItem(*file, 4, true));
    EXPECT_FALSE(spawn.IsSpawnItem(*file, -1, true));
    EXPECT_TRUE(spawn.IsSpawnItem(*file, 503, false));
    EXPECT_FALSE(spawn.IsSpawnItem(*file, 502, false)) << "it stands in the submenu";
}

TEST_F(MenuSpawnTest, ForgetsAnEntryThatIsGone)
{
    QMenu menu;
    std::unique_ptr<QAction> action(Add(menu, "&Gone", 500));
    const QAction* address = action.get();
    spawn.RemapMenu(menu);
    ASSERT_NE(spawn.ItemOf(address), nullptr);
    action.reset();
    EXPECT_EQ(spawn.ItemOf(address), nullptr);
}

TEST_F(MenuSpawnTest, MeasuresInTheFontAndByThePicture)
{
    for (const int points : {6, 10, 40}) {
        QFont font;
        font.setPointSize(points);
        const MenuLook look{MenuColors::From(QPalette()), font, 16};
        const QFontMetrics metrics(font);
        const int height = std::max(21, metrics.height());
        const auto size = [&](const char* text, int nCommand) {
            return spawn.MeasureItem({-1, nCommand, QLatin1String(text)}, look);
        };
        EXPECT_EQ(size("--", SPAWN_SEPARATOR), QSize(10, 6));
        EXPECT_EQ(size("", 500), QSize(100, 21));
        const QSize label = metrics.size(Qt::TextSingleLine, QStringLiteral("Save"));
        EXPECT_EQ(size("&Save", SPAWN_BAR), label);
        EXPECT_EQ(size("&Save", 500), QSize(label.width() + 17 + height, height));
        const int key = metrics.horizontalAdvance(QStringLiteral("Ctrl+S"));
        const int gap = size("&Save\tCtrl+S", 500).width() - size("&Save", 500).width() - key;
        EXPECT_GE(gap, metrics.averageCharWidth());
        EXPECT_LE(gap, 9 * metrics.averageCharWidth());
    }
}

TEST_F(MenuSpawnTest, FindsTheLastEntryThatIsMarkedWithTheLetter)
{
    QMenu menu;
    Add(menu, "&Small", 1);
    Add(menu, "R&efresh", 2);
    menu.addSeparator();
    Add(menu, "&Status", 3);
    Add(menu, "No mark", 4);
    Add(menu, "&1 a&&b", 5);
    Add(menu, "&Hidden", 6)->setVisible(false);
    EXPECT_FALSE(spawn.FindKeyboardShortcut(QLatin1Char('s'), menu)) << "not remapped yet";
    spawn.RemapMenu(menu);
    struct Case {
        char letter;
        int position;  // -1: none
    };
    for (const Case& c : {Case{'s', 3}, Case{'S', 3}, Case{'e', 1}, Case{'n', -1}, Case{'1', 5},
                          Case{'b', -1}, Case{'h', -1}, Case{'-', -1}}) {
        const auto found = spawn.FindKeyboardShortcut(QLatin1Char(c.letter), menu);
        EXPECT_EQ(found.value_or(-1), c.position) << c.letter;
    }
}

}  // namespace
}  // namespace quorbit
