// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/hyper_link.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <vector>

#include "app/window/fake_prompts.h"

namespace quorbit {
namespace {

const QString kAddress = QStringLiteral("https://example.org/?a=1&b=2");

class FakeOpener : public LinkOpener {
public:
    int OpenTarget(const QString& target) override
    {
        opened.push_back(target);
        return result;
    }
    int result = kLinkOpened;
    std::vector<QString> opened;
};

class HyperLinkTest : public testing::Test {
protected:
    HyperLinkTest()
    {
        link.SetTarget(kAddress);
        window.resize(400, 100);
        link.setGeometry(0, 0, 300, 60);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void MoveTo(const QPoint& place) { QTest::mouseMove(&link, place); }

    FakeOpener opener;
    FakePrompts prompts;
    QWidget window;
    CHyperLink link{{&opener, &prompts}, &window};
};

TEST(HyperLinkTextTest, TextAndTargetStandForEachOther)
{
    CHyperLink link({});
    link.SetText(kAddress);
    EXPECT_EQ(link.Target(), kAddress);
    EXPECT_EQ(link.toolTip(), kAddress);
    link.SetTarget(QStringLiteral("/help.html"));
    EXPECT_EQ(link.Target(), QLatin1String("/help.html"));
    EXPECT_EQ(link.Text(), kAddress);
    EXPECT_EQ(link.accessibleName(), kAddress);
    link.SetText({});
    EXPECT_EQ(link.Text(), QLatin1String("/help.html"));
}

TEST_F(HyperLinkTest, IsCutToItsTextByItsAlignment)
{
    struct Case {
        Qt::Alignment alignment;
        QRect cut;
    };
    const Case cases[] = {{Qt::AlignLeft | Qt::AlignTop, {10, 20, 50, 10}},
                          {Qt::AlignRight | Qt::AlignTop, {60, 20, 50, 10}},
                          {Qt::AlignHCenter | Qt::AlignTop, {35, 20, 50, 10}},
                          {Qt::AlignLeft | Qt::AlignVCenter, {10, 35, 50, 10}}};
    for (const Case& c : cases) {
        EXPECT_EQ(CutToText({10, 20, 100, 40}, {50, 10}, c.alignment), c.cut) << c.alignment;
    }
    EXPECT_EQ(link.geometry(), QRect(QPoint(0, 0), link.sizeHint())) << "no layout holds it";
}

TEST_F(HyperLinkTest, OpensByMouseAndByKeysWithinItsTextOnly)
{
    link.setGeometry(0, 0, 300, 60);
    QTest::mouseClick(&link, Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseClick(&link, Qt::LeftButton, {}, QPoint(5, 55));
    EXPECT_EQ(opener.opened, std::vector<QString>{kAddress});
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        QTest::keyClick(&link, static_cast<Qt::Key>(key));
    }
    EXPECT_EQ(opener.opened.size(), 4U);
    QTest::keyClick(&link, Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(opener.opened.size(), 4U) << "an address marks no key";
    EXPECT_TRUE(link.focusPolicy() & Qt::TabFocus);
}

TEST_F(HyperLinkTest, ColoursTellHoverBeforeVisitedAndAHandIsShownOverTheText)
{
    QPalette light;
    light.setColor(QPalette::Window, Qt::white);
    light.setColor(QPalette::Highlight, QColor(10, 90, 10));
    link.setPalette(light);
    EXPECT_EQ(link.TextColour(), QColor(0, 0, 238));
    EXPECT_TRUE(link.font().underline());
    MoveTo({5, 5});
    EXPECT_EQ(link.TextColour(), QColor(10, 90, 10));
    EXPECT_EQ(link.cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseClick(&link, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_TRUE(link.IsVisited());
    EXPECT_EQ(link.TextColour(), QColor(10, 90, 10));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&link, &leave);
    EXPECT_EQ(link.TextColour(), QColor(85, 26, 139));
    EXPECT_NE(link.cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(HyperLinkTest, AFailureIsToldAndTheLinkCountsAsNotVisited)
{
    link.SetVisited(true);
    opener.result = 2;
    QTest::mouseClick(&link, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_FALSE(link.IsVisited());
    EXPECT_EQ(prompts.asked, std::vector<std::string>{
                                 "Unable to open hyperlink:\n\nThe specified file was not found."});
    EXPECT_EQ(prompts.icons, std::vector<PromptIcon>{PromptIcon::Exclamation});
    EXPECT_EQ(LinkErrorText(0).toStdString(),
              "Unable to open hyperlink:\n\nThe operating system is out\nof memory or resources.");
    EXPECT_EQ(LinkErrorText(7).toStdString(),
              "Unable to open hyperlink:\n\nUnknown Error (7) occurred.");
}

TEST(ReadableOnTest, LeavesAColourThatStandsOutAndMovesOneThatDoesNotAwayFromTheBackground)
{
    const QColor blue(0, 0, 238);
    const QColor dark(0x35, 0x35, 0x35);
    EXPECT_EQ(ReadableOn(blue, Qt::white), blue);
    EXPECT_EQ(ReadableOn(QColor(0x88, 0xbb, 0xff), dark), QColor(0x88, 0xbb, 0xff));
    const QColor lighter = ReadableOn(blue, dark);
    EXPECT_GT(lighter.lightness(), blue.lightness());
    EXPECT_GT(lighter.blue(), lighter.red()) << "it is still a blue";
    EXPECT_LT(ReadableOn(Qt::yellow, Qt::white).lightness(), QColor(Qt::yellow).lightness());
}

}  // namespace
}  // namespace quorbit
