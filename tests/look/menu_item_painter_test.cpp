// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/menu_item_painter.h"

#include <gtest/gtest.h>

#include <QImage>
#include <cstdlib>
#include <vector>

#include "look/pictures.h"

namespace quorbit {
namespace {

constexpr QRect kEntry(0, 0, 200, 21);
constexpr QRect kSquare(0, 0, 21, 21);
constexpr QRect kLabel(22, 0, 60, 21);
constexpr QRect kMiddle(90, 0, 40, 21);
constexpr QRect kKey(130, 0, 56, 21);

struct Shades {
    const char* name;
    QPalette palette;
};

std::vector<Shades> Palettes()
{
    QPalette light(QColor(0xef, 0xef, 0xef));
    QPalette dark(QColor(0x35, 0x35, 0x35));
    light.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0xa0, 0xa0, 0xa0));
    dark.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x80, 0x80, 0x80));
    for (QPalette* palette : {&light, &dark}) {
        palette->setColor(QPalette::Highlight, QColor(0x20, 0x60, 0xc0));
        palette->setColor(QPalette::HighlightedText, Qt::yellow);
        palette->setColor(QPalette::Light, Qt::cyan);
    }
    return {{"light", light}, {"dark", dark}};
}

QPixmap Filled(const QColor& color)
{
    QPixmap pixmap(64, 64);
    pixmap.fill(color);
    return pixmap;
}

// One entry on an image, and where which colours are.
class Drawn {
public:
    Drawn(const QPalette& palette, MenuItemState state, const QString& text,
          const QIcon& picture = {})
        : m_look{MenuColors::From(palette), QFont(), 16}
    {
        state.rect = kEntry;
        m_image.fill(Qt::magenta);
        QPainter painter(&m_image);
        MenuItemPainter(painter, m_look).DrawEntry(state, text, picture, Picture("check"));
    }

    // Pixels that are of the colour, with room for the smoothing of letters.
    [[nodiscard]] int Count(const QRect& area, const QColor& color) const
    {
        int count = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                const QColor pixel = m_image.pixelColor(x, y);
                const int away = std::abs(pixel.red() - color.red()) +
                                 std::abs(pixel.green() - color.green()) +
                                 std::abs(pixel.blue() - color.blue());
                count += away < 24 ? 1 : 0;
            }
        }
        return count;
    }
    [[nodiscard]] static int Size(const QRect& area) { return area.width() * area.height(); }
    [[nodiscard]] QRgb At(int x, int y) const { return m_image.pixel(x, y); }
    [[nodiscard]] const MenuColors& Colors() const { return m_look.colors; }

private:
    MenuLook m_look;
    QImage m_image{kEntry.size(), QImage::Format_RGB32};
};

const QString kText = QStringLiteral("&MMMM\tWWWW");

TEST(MenuItemPainter, SetsTheKeyToTheRightAndFillsASelectedEntry)
{
    for (const Shades& shades : Palettes()) {
        SCOPED_TRACE(shades.name);
        const Drawn plain(shades.palette, {}, kText);
        EXPECT_GT(plain.Count(kLabel, plain.Colors().text), 10);
        EXPECT_GT(plain.Count(kKey, plain.Colors().text), 10);
        EXPECT_EQ(plain.Count(kMiddle, plain.Colors().background), Drawn::Size(kMiddle));
        EXPECT_EQ(plain.Count(kSquare, plain.Colors().background), Drawn::Size(kSquare));

        const Drawn selected(shades.palette, {.selected = true}, kText);
        EXPECT_EQ(selected.Count(kMiddle, selected.Colors().selectedBackground),
                  Drawn::Size(kMiddle));
        EXPECT_EQ(selected.Count(kSquare, selected.Colors().selectedBackground),
                  Drawn::Size(kSquare));
        EXPECT_GT(selected.Count(kKey, selected.Colors().selectedText), 10);
    }
}

TEST(MenuItemPainter, KeepsTheSquareOfAPictureOrCheckMarkFreeOfTheSelection)
{
    const QIcon red(Filled(Qt::red));
    for (const Shades& shades : Palettes()) {
        SCOPED_TRACE(shades.name);
        const Drawn lit(shades.palette, {.selected = true}, kText, red);
        EXPECT_EQ(lit.At(0, 0), lit.Colors().edge.light.rgb());
        EXPECT_EQ(lit.At(20, 20), lit.Colors().edge.dark.rgb());
        EXPECT_GE(lit.Count(kSquare, Qt::red), 256);
        EXPECT_EQ(lit.Count(kSquare, lit.Colors().selectedBackground), 0);
        const Drawn off(shades.palette, {.selected = true, .enabled = false}, kText, red);
        EXPECT_EQ(off.At(0, 0), off.Colors().background.rgb()) << "a disabled picture is not lit";
        EXPECT_LT(off.Count(kSquare, Qt::red), 256);

        const Drawn checked(shades.palette, {.checked = true}, kText);
        const int ground = checked.Count(kSquare, checked.Colors().background);
        EXPECT_GT(Drawn::Size(kSquare) - ground, 25) << "the mark is there";
        EXPECT_GT(ground, 150);
        const Drawn both(shades.palette, {.selected = true, .checked = true}, kText);
        EXPECT_EQ(both.Count(kSquare, both.Colors().selectedBackground), 0);
        const Drawn pictured(shades.palette, {.checked = true}, kText, red);
        EXPECT_EQ(pictured.Count(kSquare, Qt::red), 256) << "a picture comes before the mark";
    }
}

TEST(MenuItemPainter, EngravesADisabledTextWhereTheGroundIsLightOnly)
{
    for (const Shades& shades : Palettes()) {
        SCOPED_TRACE(shades.name);
        const Drawn off(shades.palette, {.enabled = false}, kText);
        EXPECT_GT(off.Count(kLabel, off.Colors().disabledText), 10);
        const bool light = off.Colors().background.lightness() > 128;
        EXPECT_EQ(off.Count(kLabel, off.Colors().edge.light) > 0, light);
        const Drawn selected(shades.palette, {.selected = true, .enabled = false}, kText);
        EXPECT_GT(selected.Count(kKey, selected.Colors().background), 10);
    }
}

TEST(MenuItemPainter, SinksAnOpenEntryOfTheBarAndDrawsASeparatorOfTwoLines)
{
    const MenuLook look{MenuColors::From(Palettes()[0].palette), QFont(), 16};
    QImage image(kEntry.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    MenuItemPainter entry(painter, look);
    entry.DrawBarEntry({.rect = kEntry, .selected = true}, QStringLiteral("&File"));
    EXPECT_EQ(image.pixel(0, 0), look.colors.edge.dark.rgb());
    EXPECT_EQ(image.pixel(199, 20), look.colors.edge.light.rgb());
    entry.DrawBarEntry({.rect = kEntry, .selected = true, .enabled = false}, QString());
    EXPECT_EQ(image.pixel(0, 0), look.colors.background.rgb());

    entry.DrawSeparator(QRect(0, 0, 200, 6));
    EXPECT_EQ(image.pixel(2, 2), look.colors.edge.dark.rgb());
    EXPECT_EQ(image.pixel(197, 3), look.colors.edge.light.rgb());
    EXPECT_EQ(image.pixel(1, 2), look.colors.background.rgb());
    EXPECT_EQ(image.pixel(198, 3), look.colors.background.rgb());
    EXPECT_EQ(image.pixel(100, 4), look.colors.background.rgb());
}

}  // namespace
}  // namespace quorbit
