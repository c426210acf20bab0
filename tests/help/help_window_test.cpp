// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/help_window.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QTest>
#include <memory>

#include "support/temp_folder.h"

namespace quorbit {
namespace {

class HelpWindowTest : public testing::Test {
protected:
    void Open(const QUrl& page)
    {
        if (!window) {
            HelpWindowServices services;
            services.pProfile = &profile;
            services.showTip = [this] { ++tips; };
            services.openExternal = [this](const QUrl& url) { external = url; };
            window = std::make_unique<HelpWindow>(pages, services);
        }
        window->ShowPage(page);
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    template <class T>
    T* Find(const char* name = "")
    {
        return window->findChild<T*>(QLatin1String(name));
    }
    void Click(const char* button) { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    [[nodiscard]] QString Page() { return Find<QTextBrowser>()->source().toString().mid(10); }
    // The chapters that the contents show.
    [[nodiscard]] QStringList Chapters()
    {
        const auto* contents = Find<QTreeWidget>();
        QStringList shown;
        for (int i = 0; i < contents->topLevelItemCount(); ++i) {
            if (!contents->topLevelItem(i)->isHidden()) {
                shown << contents->topLevelItem(i)->text(0);
            }
        }
        return shown;
    }

    TempFolder folder;
    Profile profile{SettingsStore(folder.Path() + "/profile.ini")};
    HelpPages pages;
    int tips = 0;
    QUrl external;
    std::unique_ptr<HelpWindow> window;
};

TEST_F(HelpWindowTest, GoesBackForwardAndHome)
{
    Open(pages.Page(QStringLiteral("log.html")));
    Open(pages.Page(QStringLiteral("keys.html")));
    EXPECT_EQ(Page(), u"keys.html");
    Click("m_btnBack");
    EXPECT_EQ(Page(), u"log.html");
    QTest::keyClick(window.get(), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Page(), u"keys.html");
    Click("m_btnHome");
    EXPECT_EQ(Page(), u"index.html");
    Click("m_btnTip");
    EXPECT_EQ(tips, 1);
}

TEST_F(HelpWindowTest, MarksInTheContentsWhatThePageShowsAndShowsWhatIsChosenThere)
{
    Open(pages.Page(QStringLiteral("kinds.html#sync")));
    auto* contents = Find<QTreeWidget>();
    ASSERT_NE(contents->currentItem(), nullptr);
    EXPECT_EQ(contents->currentItem()->text(0), u"Sync");
    contents->setCurrentItem(contents->topLevelItem(0));
    EXPECT_EQ(Page(), u"start.html");
}

TEST_F(HelpWindowTest, FindFiltersTheContentsAndSearchesThePage)
{
    Open(pages.Page(QStringLiteral("unattended.html")));
    const auto all = Chapters().size();
    QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(Find<QLineEdit>(), QStringLiteral("SYSTEMD"));
    EXPECT_EQ(Chapters(), (QStringList{QStringLiteral("First steps"),
                                       QStringLiteral("Runs without anybody there")}));
    QTest::keyClick(Find<QLineEdit>(), Qt::Key_Return);
    const QTextCursor first = Find<QTextBrowser>()->textCursor();
    EXPECT_EQ(first.selectedText(), u"systemd");
    QTest::keyClick(window.get(), Qt::Key_F3);
    QTest::keyClick(window.get(), Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Find<QTextBrowser>()->textCursor(), first);
    QTest::keyClick(window.get(), Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_GT(Find<QTextBrowser>()->textCursor().position(), first.position()) << "goes round";

    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_EQ(Chapters().size(), all);
    EXPECT_TRUE(window->isVisible());
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(HelpWindowTest, LeavesAddressesOfTheWebToABrowser)
{
    Open(pages.Page(QStringLiteral("log.html")));
    auto* browser = Find<QTextBrowser>();
    Q_EMIT browser->anchorClicked(QUrl(QStringLiteral("https://example.org/")));
    EXPECT_EQ(external.toString(), u"https://example.org/");
    EXPECT_EQ(Page(), u"log.html");
    Q_EMIT browser->anchorClicked(QUrl(QStringLiteral("keys.html")));
    EXPECT_EQ(Page(), u"keys.html");
}

TEST_F(HelpWindowTest, KeepsItsSize)
{
    for (const bool destroyed : {false, true}) {
        Open(pages.Contents());
        const QSize size(600 + destroyed, 410);
        window->resize(size);
        destroyed ? window.reset() : window->hide();
        window.reset();
        Open(pages.Contents());
        EXPECT_EQ(window->size(), size) << destroyed;
        window.reset();
    }
}

class HelpBesideDialogs : public HelpWindowTest {
protected:
    static std::unique_ptr<QDialog> Modal(QWidget* parent)
    {
        auto dialog = std::make_unique<QDialog>(parent);
        dialog->setModal(true);
        dialog->show();
        return dialog;
    }
    // A press of a button on the way that the window system takes; true if it arrived.
    bool Answers()
    {
        const int before = tips;
        const auto* button = Find<QPushButton>("m_btnTip");
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                          button->mapTo(window.get(), button->rect().center()));
        return tips == before + 1;
    }
};

TEST_F(HelpBesideDialogs, IsUsableWhicheverOpensFirst)
{
    const auto early = Modal(nullptr);
    Open(pages.Contents());
    EXPECT_TRUE(Answers());
    auto late = Modal(early.get());
    EXPECT_TRUE(Answers());
    late.reset();
    EXPECT_TRUE(Answers());
    early->hide();
    EXPECT_TRUE(Answers());
    const auto again = Modal(nullptr);
    EXPECT_TRUE(Answers());
}

TEST_F(HelpBesideDialogs, IsShutOutByADialogOfItsOwn)
{
    Open(pages.Contents());
    auto own = Modal(window.get());
    EXPECT_FALSE(Answers());
    own.reset();
    EXPECT_TRUE(Answers());
}

}  // namespace
}  // namespace quorbit
