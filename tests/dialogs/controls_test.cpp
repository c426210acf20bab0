// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests moving items between the two lists.

#include "dialogs/dialogs_test.h"
#include "dialogs/selection_lists.h"

namespace quorbit {
namespace {

using Names = std::vector<std::string>;

class ControlsTest : public DialogsTest {};

TEST_F(ControlsTest, NamesThatDifferInCaseAreBothTakenIfBothAreThere)
{
    SelectionLists lists(QString(), QString(), SelectionLists::Compare::WholeText, nullptr);
    lists.AddToChoose({"docs", "Docs", "notes"});
    Find<QListView>(lists, "m_lstChoose")->selectAll();
    Click(lists, "&Add ->");
    EXPECT_EQ(lists.ProcessNames(), (Names{"Docs", "docs", "notes"}));
    for (const char* typed : {"DOCS", "docs", "NOTES"}) {
        SpeedBox(lists)->setEditText(QLatin1String(typed));
        Click(lists, "Add &Entry ->");
    }
    Find<QListView>(lists, "m_lstChoose")->selectAll();
    Click(lists, "&Add ->");
    EXPECT_EQ(lists.ProcessNames(), (Names{"Docs", "docs", "notes"}));
}

TEST_F(ControlsTest, RemovesEverySelectedLine)
{
    SelectionLists lists(QString(), QString(), SelectionLists::Compare::WholeText, nullptr);
    lists.AddToProcess({"a", "b", "c", "d", "e"});
    for (const char* line : {"a", "b", "d"}) {
        SelectLine(lists, "m_lstProcess", line);
    }
    Click(lists, "<- &Remove");
    EXPECT_EQ(lists.ProcessNames(), (Names{"c", "e"}));
    EXPECT_FALSE(Find<QListView>(lists, "m_lstProcess")->selectionModel()->hasSelection());
}

TEST_F(ControlsTest, NothingIsMovedThatTheFilterHides)
{
    SelectionLists lists(QString(), QString(), SelectionLists::Compare::WholeText, nullptr);
    lists.AddToChoose({"*.c", "*.cpp", "*.doc", "a b"});
    auto* choose = Find<QListView>(lists, "m_lstChoose");
    auto* filter = Find<QLineEdit>(lists, "m_edtFilter");
    choose->selectAll();
    QTest::keyClicks(choose, QStringLiteral("CP"));
    EXPECT_EQ(Lines(lists, "m_lstChoose"), Names{"*.cpp"});
    Click(lists, "&Add ->");
    EXPECT_EQ(lists.ProcessNames(), Names{"*.cpp"});
    lists.AddToChoose({"*.cpx", "*.cxx"});
    EXPECT_EQ(Lines(lists, "m_lstChoose"), (Names{"*.cpp", "*.cpx"}));
    filter->clear();
    EXPECT_EQ(choose->model()->rowCount(), 6);
    Click(lists, "&Add ->");
    EXPECT_EQ(lists.ProcessNames(), Names{"*.cpp"});
    filter->setText(QStringLiteral("."));
    QTest::keyClick(filter, Qt::Key_Down);
    Click(lists, "&Add ->");
    EXPECT_EQ(lists.ProcessNames(), (Names{"*.c", "*.cpp"}));
}

TEST_F(ControlsTest, SelectionStaysWithItsLinesWhileOthersCome)
{
    SelectionLists lists(QString(), QString(), SelectionLists::Compare::WholeText, nullptr);
    lists.AddToChoose({"m", "z"});
    SelectLine(lists, "m_lstChoose", "m");
    lists.AddToChoose({"q", "B", "a"});
    EXPECT_EQ(Lines(lists, "m_lstChoose"), (Names{"a", "B", "m", "q", "z"}));
    Click(lists, "&Add ->");
    EXPECT_EQ(lists.ProcessNames(), Names{"m"});
}

TEST_F(ControlsTest, NamesKeepTheirBytes)
{
    const std::string name = "bad\xff\nname";
    SelectionLists lists(QString(), QString(), SelectionLists::Compare::WholeText, nullptr);
    lists.AddToChoose({name, "other"});
    QTest::keyClicks(SpeedBox(lists), QStringLiteral("b"));
    Click(lists, "Add &Entry ->");
    EXPECT_EQ(lists.ProcessNames(), Names{name});
}

}  // namespace
}  // namespace quorbit
