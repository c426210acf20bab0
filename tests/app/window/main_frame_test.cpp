// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/main_frame.h"

#include <QApplication>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <algorithm>

#include "app/window/app_test.h"
#include "support/fake_views.h"

namespace quorbit {
namespace {

using Lines = std::vector<std::string>;

class MainFrameTest : public AppTest {
protected:
    void SetUp() override
    {
        SetUpProgram();
        Start();
        Doc().AddView(&view);
        Frame().activateWindow();
        ASSERT_TRUE(Until([this] { return Frame().isActiveWindow(); }));
        Frame().Route().SetActiveView(&view);
    }
    void TearDown() override
    {
        Frame().Route().SetActiveView(nullptr);
        Doc().RemoveView(&view);
    }

    // Returns a menu updated as if the user had just opened it. Null if there is no such menu.
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
    [[nodiscard]] QAction* Item(const std::string& title, const std::string& text)
    {
        for (QAction* action : OpenMenu(title)->actions()) {
            if (action->text().toStdString() == text) {
                return action;
            }
        }
        return nullptr;
    }

    FakeView view{ViewKind::FileList};
};

TEST_F(MainFrameTest, CarriesACommandOutForTheMenuAndForTheKey)
{
    view.commands[CMD_REFRESH] = {};
    Item("&View", "R&efresh\tF5")->trigger();
    QTest::keyClick(&Frame(), Qt::Key_F5);
    EXPECT_EQ(view.carriedOut, (std::vector<int>{CMD_REFRESH, CMD_REFRESH}));

    view.commands[CMD_REFRESH].enabled = false;
    QTest::keyClick(&Frame(), Qt::Key_F5);
    EXPECT_EQ(view.carriedOut.size(), 2U) << "the key of a disabled command is dead";
    view.commands[CMD_REFRESH].enabled = true;
    QTest::keyClick(&Frame(), Qt::Key_F5);
    EXPECT_EQ(view.carriedOut.size(), 3U) << "and comes to life without a menu being opened";
}

TEST_F(MainFrameTest, DeletesByTheDeleteKeyAlone)
{
    // A pane with the focus would open its dialog for deletion.
    Frame().focusWidget()->clearFocus();
    QTest::keyClick(&Frame(), Qt::Key_X, Qt::ControlModifier);
    const auto deletes = [this] {
        return std::count(view.hints.begin(), view.hints.end(), HINT_DELETE);
    };
    EXPECT_EQ(deletes(), 0);
    QTest::keyClick(&Frame(), Qt::Key_Delete);
    EXPECT_EQ(deletes(), 1);
}

TEST_F(MainFrameTest, OpensTheBatchFileThatIsDroppedOnIt)
{
    WriteBatch("a.qrb");
    WriteBatch("b.QRB");
    WriteContent(Path("c.txt"), "");
    struct Case {
        Lines files;
        std::string title;  // after the drop; empty if refused
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

}  // namespace
}  // namespace quorbit
