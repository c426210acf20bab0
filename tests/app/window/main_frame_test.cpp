// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/main_frame.h"

#include <QApplication>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QTest>
#include <QUrl>
#include <algorithm>
#include <map>

#include "app/window/app_test.h"

namespace quorbit {
namespace {

using Lines = std::vector<std::string>;

class CommandView : public CView {
public:
    std::vector<int> carriedOut;
    std::map<int, CommandState> states;  // of the commands that it takes

    [[nodiscard]] ViewKind Kind() const override { return ViewKind::FileList; }
    void OnUpdate(CView*, int nHint, const HintObject*) override { hints.push_back(nHint); }
    bool OnCommand(int nId) override
    {
        if (!states.contains(nId)) {
            return false;
        }
        carriedOut.push_back(nId);
        return true;
    }
    bool OnUpdateCommand(int nId, CommandState& state) override
    {
        if (!states.contains(nId)) {
            return false;
        }
        state = states[nId];
        return true;
    }
    std::vector<int> hints;
};

class MainFrameTest : public AppTest {
protected:
    void SetUp() override
    {
        SetUpProgram();
        Start();
        Doc().AddView(&view);
        Frame().activateWindow();
        Until([this] { return Frame().isActiveWindow(); });
        Frame().Route().SetActiveView(&view);
    }
    void TearDown() override
    {
        Frame().Route().SetActiveView(nullptr);
        Doc().RemoveView(&view);
    }

    // A menu as a person finds it when it opens.
    [[nodiscard]] QMenu* OpenMenu(const std::string& title)
    {
        for (QAction* action : Frame().menuBar()->actions()) {
            if (action->text().toStdString() == title) {
                Q_EMIT action->menu()->aboutToShow();
                return action->menu();
            }
        }
        return nullptr;
    }
    [[nodiscard]] Lines Texts(const std::string& title)
    {
        Lines lines;
        for (const QAction* action : OpenMenu(title)->actions()) {
            if (action->isSeparator()) {
                lines.emplace_back("-");
            } else if (action->isVisible()) {
                lines.push_back(action->text().toStdString());
            }
        }
        return lines;
    }
    [[nodiscard]] QAction* Item(const std::string& title, const std::string& text)
    {
        for (QAction* action : OpenMenu(title)->actions()) {
            if (action->text().toStdString() == text) {
                return action;
            }
        }
        return nullptr;
    }

    CommandView view;
};

TEST_F(MainFrameTest, HasTheMenusOfTheCommandTable)
{
    EXPECT_EQ(Texts("&File"),
              (Lines{"&New\tCtrl+N", "&Open...\tCtrl+O", "&Save\tCtrl+S", "Save &As...", "-",
                     "Start &Batch File\tF8", "-", "E&xit", "-", "Recent File"}));
    EXPECT_EQ(Texts("&Edit"), (Lines{"Edi&t\tCtrl+E", "&Delete\tCtrl+X"}));
    EXPECT_EQ(Texts("&View"),
              (Lines{"Large &Icon View", "&Small Icon View", "&List View", "&Report View",
                     "Row Detail &View", "-", "&Toolbar", "&Status Bar", "-", "Log &File\tF7",
                     "&Options", "R&efresh\tF5"}));
    EXPECT_EQ(Texts("&Help"), (Lines{"&Help Topics", "&About QRB..."}));
}

TEST_F(MainFrameTest, ShowsThePicturesOfTheToolbarInItsMenus)
{
    const CMenuSpawn& spawn = Frame().MenuSpawn();
    struct Case {
        const char* menu;
        const char* text;
        int nImage;
    };
    for (const Case& c : {Case{"&File", "&New\tCtrl+N", 0}, Case{"&File", "Save &As...", -1},
                          Case{"&Edit", "&Delete\tCtrl+X", 4}, Case{"&View", "Log &File\tF7", 7},
                          Case{"&View", "&Toolbar", -1}}) {
        const SpawnItem* item = spawn.ItemOf(Item(c.menu, c.text));
        ASSERT_NE(item, nullptr) << c.text;
        EXPECT_EQ(item->nImage, c.nImage) << c.text;
    }
    const auto* bar = Frame().findChild<CFlatToolBar*>();
    EXPECT_EQ(bar->Button(CMD_VIEWS)->text(), QStringLiteral("Views"));
    EXPECT_EQ(bar->Button(CMD_VIEWS)->defaultAction()->menu()->actions().size(), 5);
}

TEST_F(MainFrameTest, ListsRecentFilesByNumber)
{
    app->Recent().Add("/home/me/a&b.qrb");
    app->Recent().Add("/home/me/" + std::string(200, 'x') + "/end.qrb");
    const Lines texts = Texts("&File");
    ASSERT_EQ(texts.size(), 11U);
    EXPECT_TRUE(texts[9].starts_with("&1 /home/me/xxx")) << texts[9];
    EXPECT_TRUE(texts[9].ends_with("x/end.qrb")) << texts[9];
    EXPECT_LT(texts[9].size(), 100U);
    EXPECT_EQ(texts[10], "&2 /home/me/a&&b.qrb");
}

TEST_F(MainFrameTest, ShowsHowACommandStandsWhenAMenuOpens)
{
    EXPECT_FALSE(Item("&Edit", "Edi&t\tCtrl+E")->isEnabled()) << "no row is selected";
    EXPECT_TRUE(Item("&File", "Start &Batch File\tF8")->isEnabled());

    view.states[CMD_VIEW_LIST] = {true, true};
    EXPECT_TRUE(Item("&View", "&List View")->isEnabled());
    EXPECT_TRUE(Item("&View", "&List View")->isChecked());
    view.states[CMD_VIEW_LIST] = {false, false};
    EXPECT_FALSE(Item("&View", "&List View")->isEnabled());
    EXPECT_FALSE(Item("&View", "&List View")->isChecked());
}

TEST_F(MainFrameTest, CarriesACommandOutForTheMenuAndForTheKey)
{
    view.states[CMD_REFRESH] = {};
    Item("&View", "R&efresh\tF5")->trigger();
    QTest::keyClick(&Frame(), Qt::Key_F5);
    EXPECT_EQ(view.carriedOut, (std::vector<int>{CMD_REFRESH, CMD_REFRESH}));

    view.states[CMD_REFRESH].enabled = false;
    QTest::keyClick(&Frame(), Qt::Key_F5);
    EXPECT_EQ(view.carriedOut.size(), 2U) << "the key of a disabled command is dead";
    view.states[CMD_REFRESH].enabled = true;
    QTest::keyClick(&Frame(), Qt::Key_F5);
    EXPECT_EQ(view.carriedOut.size(), 3U) << "and comes to life without a menu being opened";
}

TEST_F(MainFrameTest, DeletesByTheDeleteKeyAlone)
{
    // The pane with the focus would ask what to delete.
    Frame().focusWidget()->clearFocus();
    QTest::keyClick(&Frame(), Qt::Key_X, Qt::ControlModifier);
    const auto deletes = [this] {
        return std::count(view.hints.begin(), view.hints.end(), HINT_DELETE);
    };
    EXPECT_EQ(deletes(), 0);
    QTest::keyClick(&Frame(), Qt::Key_Delete);
    EXPECT_EQ(deletes(), 1);
}

TEST_F(MainFrameTest, NamesTheDocumentInItsTitle)
{
    EXPECT_EQ(Title(), "QRB Untitled");
    WriteBatch("a.qrb");
    ASSERT_TRUE(app->Files().OpenDocumentFile(Path("a.qrb")));
    EXPECT_EQ(Title(), "QRB " + Path("a.qrb"));
    prompts.files = {Path("b.qrb")};
    QTest::keyClick(&Frame(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Title(), "QRB " + Path("a.qrb")) << "it has a name";
    EXPECT_TRUE(Frame().OnCmdMsg(CMD_FILE_SAVE_AS));
    EXPECT_EQ(Title(), "QRB " + Path("b.qrb"));
    QTest::keyClick(&Frame(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(Title(), "QRB Untitled");
}

TEST_F(MainFrameTest, HidesAndShowsItsStatusBar)
{
    QAction* item = Item("&View", "&Status Bar");
    EXPECT_TRUE(item->isChecked());
    item->trigger();
    EXPECT_TRUE(Frame().statusBar()->isHidden());
    EXPECT_FALSE(Item("&View", "&Status Bar")->isChecked());
    Item("&View", "&Status Bar")->trigger();
    EXPECT_FALSE(Frame().statusBar()->isHidden());
}

TEST_F(MainFrameTest, OpensTheBatchFileThatIsDroppedOnIt)
{
    WriteBatch("a.qrb");
    WriteBatch("b.QRB");
    WriteContent(Path("c.txt"), "");
    struct Case {
        Lines files;
        std::string title;  // after the drop; empty: refused
    };
    for (const Case& c : {Case{{"c.txt"}, ""}, Case{{"a.qrb", "b.QRB"}, ""},
                          Case{{"a.qrb"}, "a.qrb"}, Case{{"b.QRB"}, "b.QRB"}}) {
        QMimeData mime;
        QList<QUrl> urls;
        for (const std::string& name : c.files) {
            urls << QUrl::fromLocalFile(QString::fromStdString(Path(name)));
        }
        mime.setUrls(urls);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(&Frame(), &enter);
        ASSERT_EQ(enter.isAccepted(), !c.title.empty()) << c.files[0];
        if (enter.isAccepted()) {
            EXPECT_EQ(enter.dropAction(), Qt::CopyAction) << "the file stays where it is";
            QDropEvent drop({5, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(&Frame(), &drop);
            Serve();
            EXPECT_EQ(Title(), "QRB " + Path(c.title));
        }
    }
}

TEST_F(MainFrameTest, ComesBackWhereItWasLeft)
{
    Frame().setGeometry(40, 60, 500, 300);
    Frame().close();
    ASSERT_EQ(ended, 0);
    Doc().RemoveView(&view);
    Start();
    Doc().AddView(&view);
    EXPECT_EQ(Frame().geometry(), QRect(40, 60, 500, 300));
    Frame().showMaximized();
    Frame().close();
    Doc().RemoveView(&view);
    Start();
    Doc().AddView(&view);
    EXPECT_TRUE(Frame().isMaximized());
}

}  // namespace
}  // namespace quorbit
