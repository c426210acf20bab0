// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QTest>
#include <QToolButton>
#include <set>

#include "app/window/caption_bar.h"
#include "app/window/caption_paint.h"
#include "app/window/frameless_frame.h"

namespace quorbit {
namespace {

constexpr QRgb kBlack = 0xff000000;
constexpr QRgb kWhite = 0xffffffff;

TEST(CaptionGradientTest, FadesFromBlackToTheCaptionColour)
{
    // Fades over 768 x 5 / 6 = 640 pixels in strips of 10; below that by hand.
    const std::vector<CaptionStrip> wide = CaptionGradient(768, qRgb(200, 101, 7));
    ASSERT_EQ(wide.size(), 65U);
    EXPECT_EQ(wide[0], (CaptionStrip{640, 128, qRgb(200, 101, 7)}));
    EXPECT_EQ(wide[1], (CaptionStrip{630, 10, qRgb(200, 101, 7)}));
    EXPECT_EQ(wide[32], (CaptionStrip{320, 10, qRgb(150, 76, 6)}));
    EXPECT_EQ(wide[63], (CaptionStrip{10, 10, qRgb(7, 4, 1)}));
    EXPECT_EQ(wide[64], (CaptionStrip{0, 10, kBlack}));
}

TEST(CaptionGradientTest, CoversABarOfAnyWidthWithoutAGap)
{
    for (const int width : {1, 2, 5, 6, 70, 76, 77, 999, 20000}) {
        int end = width;
        for (const CaptionStrip& strip : CaptionGradient(width, kWhite)) {
            EXPECT_GE(strip.width, 1) << width;
            EXPECT_EQ(strip.left + strip.width, end) << width;
            end = strip.left;
        }
        EXPECT_EQ(end, 0) << width;
    }
    EXPECT_TRUE(CaptionGradient(0, kWhite).empty());
    const std::vector<CaptionStrip> narrow = CaptionGradient(70, kWhite);
    EXPECT_EQ(narrow[1].width, 1) << "a strip is never narrower";
    EXPECT_EQ(narrow.size(), 1U + 58U);
    const std::vector<CaptionStrip> vast = CaptionGradient(60000, kWhite);
    EXPECT_EQ(vast[32].colour, qRgb(192, 192, 192)) << "large squares do not wrap";
}

TEST(CaptionColoursTest, KeepsTextReadable)
{
    struct Case {
        QRgb text;
        int lightness;
        QRgb shown;
    };
    for (const Case& c :
         {Case{kBlack, 0, kWhite}, Case{kWhite, 240, kWhite},
          Case{qRgb(255, 0, 0), 120, qRgb(255, 0, 0)}, Case{qRgb(95, 50, 95), 68, kWhite},
          Case{qRgb(95, 95, 95), 89, kWhite}, Case{qRgb(96, 96, 96), 90, qRgb(96, 96, 96)}}) {
        EXPECT_EQ(Lightness(c.text), c.lightness);
        EXPECT_EQ(ActiveTextColour(c.text), c.shown) << c.lightness;
    }
    for (const QColor& window : {QColor(240, 240, 240), QColor(45, 45, 45), QColor(0, 0, 0)}) {
        const CaptionColours inactive = ColoursOf(QPalette(window, window), false);
        EXPECT_LE(Lightness(inactive.fill), 106) << "white is read on it";
        EXPECT_GE(Lightness(inactive.text) - Lightness(inactive.fill), 90) << window.lightness();
    }
}

class CaptionBarTest : public testing::Test {
protected:
    void SetUp() override
    {
        QPalette palette;
        palette.setColor(QPalette::Active, QPalette::Highlight, kHighlight);
        palette.setColor(QPalette::HighlightedText, kHighlightedText);
        bar.setPalette(palette);
        bar.resize(600, bar.sizeHint().height());
        bar.SetActive(true);
    }
    [[nodiscard]] QImage Image() { return bar.grab().toImage(); }
    // The first column in which a colour stands; -1: none.
    [[nodiscard]] static int FirstColumn(const QImage& image, QRgb colour)
    {
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                if (image.pixel(x, y) == colour) {
                    return x;
                }
            }
        }
        return -1;
    }

    const QColor kHighlight{40, 90, 250};
    const QColor kHighlightedText{255, 255, 0};
    CaptionBar bar;
};

TEST_F(CaptionBarTest, PaintsBothStates)
{
    const QImage active = Image();
    EXPECT_EQ(active.pixel(0, 0), kBlack);
    EXPECT_EQ(active.pixel(599, 0), kHighlight.rgb());
    EXPECT_EQ(active.pixel(500, 0), kHighlight.rgb());
    bar.SetActive(false);
    const QRgb fill = ColoursOf(bar.palette(), false).fill;
    EXPECT_EQ(Image().pixel(0, 0), fill);
    EXPECT_EQ(Image().pixel(599, 0), fill);
}

TEST_F(CaptionBarTest, PaintsAnewWhenColoursSizeOrTitleChange)
{
    (void)Image();
    QPalette palette = bar.palette();
    palette.setColor(QPalette::Active, QPalette::Highlight, Qt::red);
    bar.setPalette(palette);
    EXPECT_EQ(Image().pixel(599, 0), qRgb(255, 0, 0));
    bar.resize(300, bar.height());
    EXPECT_EQ(Image().width(), 300);
    EXPECT_EQ(Image().pixel(299, 0), qRgb(255, 0, 0));
    const QImage untitled = Image();
    bar.SetTitle(QStringLiteral("QRB"), {});
    EXPECT_NE(Image(), untitled);
    for (const int width : {1, 30, 75}) {
        bar.resize(width, bar.height());
        EXPECT_EQ(Image().pixel(width - 1, 0), qRgb(255, 0, 0)) << "a narrow one paints";
    }
}

TEST_F(CaptionBarTest, DrawsTheDocumentInTheRoomThatTheProgramLeaves)
{
    const QString document = QString(20, QChar(0x2588));  // full blocks: their colour is sure
    bar.SetTitle(QStringLiteral("I"), document);
    const int near = FirstColumn(Image(), kHighlightedText.rgb());
    EXPECT_GT(near, 0);
    bar.SetTitle(QStringLiteral("IIIIIIII"), document);
    EXPECT_GT(FirstColumn(Image(), kHighlightedText.rgb()), near);
    bar.SetTitle(QString(300, QLatin1Char('I')), document);
    EXPECT_EQ(FirstColumn(Image(), kHighlightedText.rgb()), -1) << "no room is left";
}

TEST_F(CaptionBarTest, LeavesTheButtonsOutOfTheTabOrderButNamesThem)
{
    std::set<QString> names;
    for (const QToolButton* button : bar.findChildren<QToolButton*>()) {
        EXPECT_EQ(button->focusPolicy(), Qt::NoFocus);
        EXPECT_EQ(button->toolTip(), button->accessibleName());
        EXPECT_FALSE(button->icon().isNull());
        names.insert(button->accessibleName());
    }
    EXPECT_EQ(names, (std::set<QString>{QStringLiteral("Minimise"), QStringLiteral("Maximise"),
                                        QStringLiteral("Close")}));
}

class FramelessFrameTest : public testing::Test {
protected:
    void Show()
    {
        frame.menuBar()->addMenu(QStringLiteral("&File"));
        frame.resize(500, 300);
        frame.show();
        frame.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    }
    void Click(FramelessFrame& frameless, const char* name)
    {
        for (QToolButton* button : frameless.Bar().findChildren<QToolButton*>()) {
            if (button->accessibleName() == QLatin1String(name)) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        FAIL() << name;
    }
    QMainWindow frame;
};

TEST_F(FramelessFrameTest, LeavesThePlatformsTitleBarWhereItCannotBeReplaced)
{
    FramelessFrame frameless(frame, false);
    frameless.SetTitle(QStringLiteral("QRB"), QStringLiteral("/a.qrb"));
    Show();
    EXPECT_FALSE(frame.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(frameless.Bar().isHidden());
    EXPECT_EQ(frame.menuBar()->y(), 0);
    EXPECT_EQ(frame.windowTitle(), QStringLiteral("QRB /a.qrb"));
}

TEST_F(FramelessFrameTest, StandsAboveTheMenuBarAndFollowsTheWindow)
{
    FramelessFrame frameless(frame, true);
    Show();
    EXPECT_TRUE(frame.windowFlags().testFlag(Qt::FramelessWindowHint));
    const CaptionBar& bar = frameless.Bar();
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(frame.menuBar()->y(), bar.geometry().bottom() + 1);
    EXPECT_GT(bar.x(), 0) << "an edge to size by";
    EXPECT_TRUE(bar.IsActive());
    QMainWindow other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_FALSE(bar.IsActive());

    frame.resize(400, 200);
    EXPECT_EQ(bar.width(), 400 - 2 * bar.x());
    frame.showFullScreen();
    EXPECT_TRUE(bar.isHidden());
    frame.showNormal();
    EXPECT_TRUE(bar.isVisible());
}

TEST_F(FramelessFrameTest, FollowsTheTitleOfTheWindow)
{
    FramelessFrame frameless(frame, true);
    const CaptionBar& bar = frameless.Bar();
    frameless.SetTitle(QStringLiteral("QRB"), QStringLiteral("Untitled"));
    struct Case {
        const char* title;
        const char* program;
        const char* document;
    };
    for (const Case& c : {Case{"QRB /home/a b.qrb", "QRB", "/home/a b.qrb"},
                          Case{"QRBs", "QRBs", ""}, Case{"QRB ", "QRB", ""}}) {
        frame.setWindowTitle(QLatin1String(c.title));
        EXPECT_EQ(bar.Program(), QLatin1String(c.program));
        EXPECT_EQ(bar.Document(), QLatin1String(c.document));
    }
    frameless.SetTitle(QStringLiteral("QRB"), QStringLiteral("/a[*]/b.qrb"));
    EXPECT_EQ(bar.Document(), QStringLiteral("/a[*]/b.qrb"));
    EXPECT_FALSE(frame.isWindowModified());
}

TEST_F(FramelessFrameTest, HasButtonsThatWork)
{
    FramelessFrame frameless(frame, true);
    Show();
    Click(frameless, "Maximise");
    EXPECT_TRUE(frame.isMaximized());
    EXPECT_EQ(frameless.Bar().x(), 0) << "nothing to size by";
    Click(frameless, "Restore");
    EXPECT_FALSE(frame.isMaximized());
    QTest::mouseDClick(&frameless.Bar(), Qt::LeftButton, {}, {60, 10});
    EXPECT_TRUE(frame.isMaximized());
    Click(frameless, "Minimise");
    EXPECT_TRUE(frame.isMinimized());
    Click(frameless, "Close");
    EXPECT_FALSE(frame.isVisible());
}

TEST_F(FramelessFrameTest, SizesByTheEdgesUnderTheMouse)
{
    struct Case {
        QPoint place;  // in a window of 300 by 200 with a border of 4
        Qt::Edges edges;
    };
    const Qt::Edges none;
    for (const Case& c : {Case{{150, 100}, none}, Case{{4, 4}, none}, Case{{295, 195}, none},
                          Case{{3, 100}, Qt::LeftEdge}, Case{{296, 100}, Qt::RightEdge},
                          Case{{150, 3}, Qt::TopEdge}, Case{{150, 196}, Qt::BottomEdge},
                          Case{{15, 0}, Qt::LeftEdge | Qt::TopEdge}, Case{{16, 0}, Qt::TopEdge},
                          Case{{0, 184}, Qt::LeftEdge | Qt::BottomEdge},
                          Case{{299, 15}, Qt::RightEdge | Qt::TopEdge},
                          Case{{284, 199}, Qt::RightEdge | Qt::BottomEdge}}) {
        EXPECT_EQ(FramelessFrame::EdgesAt(c.place, {300, 200}, 4), c.edges)
            << c.place.x() << "," << c.place.y();
    }
}

}  // namespace
}  // namespace quorbit
