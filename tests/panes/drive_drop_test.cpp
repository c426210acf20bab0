// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>

#include "panes/drag_payload.h"
#include "panes/drive_fixture.h"

namespace quorbit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DriveDropTest : public DriveTest {
protected:
    [[nodiscard]] QPoint PlaceOf(const QTreeWidgetItem* node) const
    {
        return m_view->visualItemRect(node).center();
    }
    void Enter(const QMimeData& data, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        QDragEnterEvent event({1, 1}, Qt::CopyAction | Qt::MoveAction, &data, buttons, {});
        QApplication::sendEvent(m_view->viewport(), &event);
        EXPECT_TRUE(event.isAccepted()) << "else no move would come";
    }
    bool MoveTo(const QMimeData& data, const QPoint& place)
    {
        QDragMoveEvent event(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(m_view->viewport(), &event);
        return event.isAccepted();
    }
    bool DropAt(const QMimeData& data, const QPoint& place)
    {
        QDropEvent event(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(m_view->viewport(), &event);
        EXPECT_THAT(m_posted, IsEmpty()) << "nothing before the drop has returned";
        EXPECT_THAT(m_prompts.asked, IsEmpty());
        QApplication::processEvents();
        return event.isAccepted();
    }
    bool DragTo(const QMimeData& data, const QTreeWidgetItem* node,
                Qt::MouseButtons buttons = Qt::LeftButton)
    {
        m_posted.clear();
        m_prompts.asked.clear();
        Enter(data, buttons);
        const bool taken = MoveTo(data, PlaceOf(node));
        return DropAt(data, PlaceOf(node)) && taken;
    }
    // Presses a button on a node and drags over other nodes.
    void DragFrom(const QTreeWidgetItem* node, Qt::MouseButton button)
    {
        const QPoint place = PlaceOf(node);
        QTest::mousePress(m_view->viewport(), button, {}, place);
        QPoint away = place;
        for (int step = 0; step < 3; ++step) {
            away += QPoint(0, QApplication::startDragDistance());
            QMouseEvent move(QEvent::MouseMove, away, m_view->viewport()->mapToGlobal(away),
                             Qt::NoButton, button, {});
            QApplication::sendEvent(m_view->viewport(), &move);
        }
        QTest::mouseRelease(m_view->viewport(), button, {}, away);
    }
    void MakeDrive()
    {
        Make({"from/", "to/sub/"});
        Expand("D:\\");
        m_from = m_view->FindNodeByPath("D:\\from");
        m_to = m_view->FindNodeByPath("D:\\to");
        m_view->SetDragRunner([this](QWidget&, const DragContent& content, Qt::MouseButton button) {
            m_dragged.push_back(content.text);
            m_button = button;
        });
    }

    ShellTreeNode* m_from = nullptr;
    ShellTreeNode* m_to = nullptr;
    std::vector<std::string> m_dragged;
    Qt::MouseButton m_button = Qt::NoButton;
};

TEST_F(DriveDropTest, DragsAFolderWithEitherButtonAndSelectsNothing)
{
    MakeDrive();
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        m_dragged.clear();
        DragFrom(m_from, button);
        EXPECT_THAT(m_dragged, ElementsAre("DD:\\from"));
        EXPECT_EQ(m_button, button);
        EXPECT_EQ(m_view->CurrentPath(), "D:\\");
        EXPECT_EQ(m_view->PopupMenu(), nullptr) << "a drag is no click";
        DragFrom(m_view->RootNode(), button);
        EXPECT_EQ(m_dragged.size(), 1U) << "it has no path";
    }
    DragFrom(m_from, Qt::MiddleButton);
    EXPECT_EQ(m_dragged.size(), 1U);
    EXPECT_EQ(m_view->GetSourcePath(), "") << "nothing was dropped";
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, PlaceOf(m_from));
    EXPECT_EQ(m_view->CurrentPath(), "D:\\from");
}

TEST_F(DriveDropTest, OpensTheDialogThatFitsWhatWasDropped)
{
    MakeDrive();
    const auto folder = MakeDragData(FolderDrag("D:\\from"), Qt::LeftButton);
    EXPECT_TRUE(DragTo(*folder, m_to));
    EXPECT_THAT(m_posted, ElementsAre(CMD_NEW_FILE_TYPE_ENTRY));
    EXPECT_EQ(m_view->DropText(), "DD:\\from");
    EXPECT_EQ(m_view->GetSourcePath(), "D:\\from");
    EXPECT_EQ(m_view->GetDestPath(), "D:\\to");
    EXPECT_THAT(m_prompts.asked, IsEmpty());

    const auto rows = MakeDragData(ListDrag({"a.txt", "b, c.txt"}), Qt::LeftButton);
    EXPECT_TRUE(DragTo(*rows, m_to));
    EXPECT_THAT(m_posted, ElementsAre(CMD_NEW_FILE_ENTRY));
    PaneAnswers answers;
    m_view->AnswerDocument(answers);
    EXPECT_EQ(answers.tree->dropText, "Fa.txt, b, c.txt");
    EXPECT_THAT(answers.tree->dropNames, ElementsAre("a.txt", "b, c.txt"));
    EXPECT_EQ(m_view->GetSourcePath(), "D:\\") << "the folder that the list shows";
    EXPECT_EQ(m_view->PopupMenu(), nullptr);
}

TEST_F(DriveDropTest, TheRightButtonAsksWhatToMake)
{
    MakeDrive();
    struct Case {
        bool list;
        int row;
        const char* text;
        int command;
    };
    const Case cases[] = {
        {false, 0, "Add File Types", CMD_NEW_FILE_TYPE_ENTRY},
        {true, 0, "Add File Types", CMD_NEW_FILE_ENTRY},
        {false, 1, "Add Default File Configuration", CMD_ADD_DEFAULT},
        {true, 2, "Add *.* with defaults", CMD_ADD_DEFAULT_ALL},
    };
    for (const Case& c : cases) {
        const auto data =
            MakeDragData(c.list ? ListDrag({"x"}) : FolderDrag("D:\\from"), Qt::RightButton);
        // Some platforms report no buttons during a drag.
        EXPECT_TRUE(DragTo(*data, m_to, c.list ? Qt::NoButton : Qt::RightButton));
        EXPECT_THAT(m_posted, IsEmpty());
        ASSERT_NE(m_view->PopupMenu(), nullptr);
        const auto rows = m_view->PopupMenu()->actions();
        ASSERT_EQ(rows.size(), 3);
        EXPECT_EQ(rows[c.row]->text().remove(QLatin1Char('&')), QString::fromLatin1(c.text));
        rows[c.row]->trigger();
        QApplication::processEvents();
        EXPECT_THAT(m_posted, ElementsAre(c.command)) << c.text;
        m_view->PopupMenu()->close();
    }
}

TEST_F(DriveDropTest, TheSourceIsWhatIsDroppedNotWhatWasDraggedBefore)
{
    MakeDrive();
    struct Case {
        std::string selected;
        DragContent drag;
        std::string source;
        bool warned;
    };
    // A folder drag may come from another window.
    for (const Case& c : {Case{"D:\\from", FolderDrag("/elsewhere"), "/elsewhere", false},
                          Case{"D:\\from", ListDrag({"x"}), "D:\\from", false},
                          Case{"D:\\from", FolderDrag("D:\\to"), "D:\\to", true},
                          Case{"D:\\to", ListDrag({"sub"}), "D:\\to", true}}) {
        DragFrom(m_from, Qt::LeftButton);  // and given up
        GoTo(c.selected);
        EXPECT_TRUE(DragTo(*MakeDragData(c.drag, Qt::LeftButton), m_to));
        EXPECT_EQ(m_view->GetSourcePath(), c.source);
        EXPECT_EQ(m_view->GetDestPath(), "D:\\to");
        EXPECT_EQ(m_prompts.asked.size(), c.warned ? 1U : 0U) << c.source;
    }
    // The rows of these nodes are drives, which a default entry cannot name.
    for (int place = 0; place < 2; ++place) {
        m_view->setCurrentItem(m_view->topLevelItem(place));
        EXPECT_TRUE(
            DragTo(*MakeDragData(ListDrag({"D:\\"}), Qt::RightButton), m_to, Qt::RightButton));
        EXPECT_EQ(m_view->GetSourcePath(), "My Computer");
        std::vector<bool> enabled;
        for (const QAction* row : m_view->PopupMenu()->actions()) {
            enabled.push_back(row->isEnabled());
        }
        EXPECT_THAT(enabled, ElementsAre(true, false, false));
        m_view->PopupMenu()->close();
    }
}

TEST_F(DriveDropTest, RefusesWhatIsNotOursAndNodesWithoutAPath)
{
    MakeDrive();
    QMimeData text;
    text.setText(QStringLiteral("qrbD/x"));
    QMimeData none;
    const auto ours = MakeDragData(FolderDrag("D:\\from"), Qt::LeftButton);
    EXPECT_TRUE(DragTo(*ours, m_to));
    EXPECT_EQ(m_view->GetDestPath(), "D:\\to");
    EXPECT_FALSE(DragTo(text, m_to));
    EXPECT_FALSE(DragTo(none, m_to));
    for (int place = 0; place < 2; ++place) {  // My Computer, Network Neighborhood
        EXPECT_FALSE(DragTo(*ours, m_view->topLevelItem(place)));
        EXPECT_THAT(m_posted, IsEmpty());
        EXPECT_THAT(m_prompts.asked, IsEmpty());
    }
}

}  // namespace
}  // namespace quorbit
