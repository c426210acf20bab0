// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/drive_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <filesystem>

#include "panes/drive_fixture.h"

namespace quorbit {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class DriveViewTest : public DriveTest {
protected:
    [[nodiscard]] static ShellListItem Row(const ShellTreeItem& folder, const std::string& name)
    {
        ShellListItem row;
        row.m_pFolder = *folder.m_pFolder->BindToObject(folder.m_pidlItem);
        row.m_pidlItem = IdOf(*row.m_pFolder, name);
        row.m_dwAttributes = AttributesOf(*row.m_pFolder, name);
        row.m_szName = name;
        return row;
    }
    [[nodiscard]] std::string SelectedPath() const
    {
        std::string path;
        m_view->GetItemPath(m_view->SelectedNode(), path);
        return path;
    }
};

TEST_F(DriveViewTest, ReadsANodeOnceWhenItIsSelected)
{
    Make({"a10/x/", "a2/", ".hidden/", "file="});
    ShellTreeNode* drive = GoTo("D:\\");
    EXPECT_THAT(Texts("D:\\"), ElementsAre(".hidden", "a2", "a10")) << "as a person sorts them";
    EXPECT_FALSE(drive->isExpanded());
    EXPECT_TRUE(m_view->FindNodeByPath("D:\\a10")->HasMark());
    EXPECT_FALSE(m_view->FindNodeByPath("D:\\a2")->HasMark());
    EXPECT_EQ(m_view->CurrentPath(), "D:\\");
    EXPECT_EQ(m_list.folder, "D:\\");

    WriteTree(Path("d"), {"new/"});
    drive->setExpanded(true);
    Settle();
    EXPECT_THAT(Texts("D:\\"), Not(Contains("new")));

    m_view->setCurrentItem(m_view->FindNodeByPath("D:\\a10\\x"));
    EXPECT_EQ(m_view->CurrentPath(), "D:\\") << "not read yet, so there was nothing to select";
    GoTo("D:\\a10\\x");
    EXPECT_EQ(m_view->CurrentPath(), "D:\\a10\\x");
    m_view->setCurrentItem(m_view->topLevelItem(1));
    EXPECT_EQ(m_view->CurrentPath(), "My Computer") << "the network has no path";
    drive->setExpanded(false);
    m_view->setCurrentItem(m_view->RootNode());
    EXPECT_EQ(m_view->CurrentPath(), "My Computer");
}

TEST_F(DriveViewTest, AFolderThatCannotBeReadKeepsItsMarkAndIsReadAgain)
{
    Make({"a/x/"});
    Expand("D:\\");
    std::filesystem::rename(Path("d/a"), Path("d/b"));
    ShellTreeNode* node = m_view->FindNodeByPath("D:\\a");
    node->setExpanded(true);
    Settle();
    EXPECT_TRUE(node->HasMark());
    EXPECT_FALSE(node->isExpanded());
    std::filesystem::rename(Path("d/b"), Path("d/a"));
    node->setExpanded(true);
    Settle();
    EXPECT_THAT(Texts(node), ElementsAre("x"));
}

TEST_F(DriveViewTest, GoesDownAsFarAsThePathExists)
{
    Make({"dir/a\nb/"});
    int ends = 0;
    m_view->GoToPath("D:\\dir\\none\\deeper", [&] { ++ends; });
    ASSERT_TRUE(Until([&] { return ends == 1; }));
    EXPECT_EQ(SelectedPath(), "D:\\dir");
    GoTo("D:\\dir\\a\nb");
    EXPECT_EQ(SelectedPath(), "D:\\dir\\a\nb") << "by its bytes, not by what is shown";
    GoTo("E:\\x");
    EXPECT_EQ(SelectedPath(), "D:\\dir\\a\nb");
}

TEST_F(DriveViewTest, OpensTheRowThatWasDoubleClickedInTheList)
{
    Make({"same/same/", "same/file="});
    m_view->SelectNode(*m_view->FindVolume("D:\\"));  // starts reading its children
    const ShellTreeItem drive = m_view->SelectedNode()->Item();
    const ShellListItem row = Row(drive, "same");
    m_view->OnUpdate(&m_list, HINT_FOLDER_OPENED, std::make_unique<ListItemHint>(row).get());
    Settle();
    EXPECT_EQ(SelectedPath(), "D:\\same");
    const ShellListItem inner = Row(m_view->SelectedNode()->Item(), "same");
    m_view->OnUpdate(&m_list, HINT_FOLDER_OPENED, std::make_unique<ListItemHint>(inner).get());
    Settle();
    EXPECT_EQ(SelectedPath(), "D:\\same\\same") << "not the selected one, which is called so too";
    EXPECT_THAT(m_list.hints, Not(Contains(HINT_FOLDER_NOT_FOUND)));

    GoTo("D:\\same");
    const ShellListItem file = Row(m_view->SelectedNode()->Item(), "file");
    m_list.hints.clear();
    m_view->OnUpdate(&m_list, HINT_FOLDER_OPENED, std::make_unique<ListItemHint>(file).get());
    EXPECT_THAT(m_list.hints, ElementsAre(HINT_FOLDER_NOT_FOUND));
    EXPECT_EQ(SelectedPath(), "D:\\same");
}

TEST_F(DriveViewTest, RefreshFollowsTheDiskBelowExpandedNodes)
{
    Make({"a/x/", "a/y/", "b/z/", "c/", ".h/"});
    Expand("D:\\");
    Expand("D:\\a");
    GoTo("D:\\b");
    std::filesystem::remove_all(Path("d/a/x"));
    std::filesystem::remove_all(Path("d/c"));
    std::filesystem::remove_all(Path("d/b/z"));
    WriteTree(Path("d"), {"Bb/", "a10/", "a2/sub/", ".h2/", "Control Panel/", "a/new/", "b/new/"});
    m_list.hints.clear();
    Refresh();
    EXPECT_THAT(Texts("D:\\"),
                ElementsAre(".h", ".h2", "a", "a10", "a2", "b", "Bb", "Control Panel"))
        << "by text, nothing that exists removed";
    EXPECT_THAT(Texts("D:\\a"), ElementsAre("new", "y"));
    EXPECT_THAT(Texts("D:\\b"), ElementsAre("new")) << "selected, so the list shows it";
    EXPECT_TRUE(m_view->FindNodeByPath("D:\\a2")->HasMark());
    EXPECT_EQ(SelectedPath(), "D:\\b");
    EXPECT_THAT(m_list.hints, ElementsAre(HINT_FOLDER_SELECTED));
    EXPECT_EQ(m_list.folder, "D:\\b\\");
}

TEST_F(DriveViewTest, OpensAFolderThatIsNewerThanTheTree)
{
    Make({"leaf/", "full/x/"});
    Expand("D:\\");
    for (const std::string folder : {"leaf", "full"}) {
        for (const std::string name : {"new", ".hidden"}) {
            GoTo("D:\\" + folder);
            std::filesystem::create_directory(Path("d/" + folder + "/" + name));
            const ShellListItem row = Row(m_view->SelectedNode()->Item(), name);
            m_view->OnUpdate(&m_list, HINT_FOLDER_OPENED,
                             std::make_unique<ListItemHint>(row).get());
            Settle();
            EXPECT_EQ(SelectedPath(), "D:\\" + folder + "\\" + name);
        }
    }
    EXPECT_THAT(Texts("D:\\leaf"), ElementsAre(".hidden", "new"));
    EXPECT_THAT(Texts("D:\\full"), ElementsAre(".hidden", "new", "x"));
}

TEST_F(DriveViewTest, RefreshFollowsNetworkShares)
{
    Make({});
    const QTreeWidgetItem* network = m_view->topLevelItem(1);
    EXPECT_FALSE(NodeOf(network)->HasMark());
    const std::string mounts = m_strMounts;
    m_strMounts += "30 20 0:40 / /mnt/share rw - fuse.sshfs server:/x rw\n";
    Refresh();
    EXPECT_TRUE(NodeOf(network)->HasMark());
    m_view->setCurrentItem(m_view->topLevelItem(1));
    Settle();
    EXPECT_EQ(Texts(network).size(), 1U);
    m_view->setCurrentItem(m_view->RootNode());
    m_strMounts = mounts;
    Refresh();
    EXPECT_THAT(Texts(network), IsEmpty()) << "else it takes drops into the bare mount point";
    EXPECT_FALSE(NodeOf(network)->HasMark());
}

TEST_F(DriveViewTest, RefreshKeepsWhatItCannotRead)
{
    Make({"a/x/"});
    Expand("D:\\");
    Expand("D:\\a");
    // Replace the folder with a file: it exists but cannot be listed, even by root.
    std::filesystem::rename(Path("d"), Path("away"));
    WriteContent(Path("d"), "");
    Refresh();
    EXPECT_THAT(Texts("D:\\"), ElementsAre("a"));
    EXPECT_THAT(Texts("D:\\a"), ElementsAre("x"));
}

TEST_F(DriveViewTest, DeletesWhatIsSelectedOrWhatTheMenuWasOpenedOn)
{
    Make({"a/", "b/", "c/"});
    Expand("D:\\");
    GoTo("D:\\a");
    m_view->clearFocus();
    m_view->OnUpdate(nullptr, HINT_DELETE, nullptr);
    EXPECT_THAT(m_sent, IsEmpty()) << "another pane has the focus";
    QFocusEvent focus(QEvent::FocusIn);
    QApplication::sendEvent(m_view.get(), &focus);

    const auto rightClick = [&](const QTreeWidgetItem* item) {
        QTest::mouseClick(m_view->viewport(), Qt::RightButton, {},
                          m_view->visualItemRect(item).center());
    };
    for (int place = 0; place < 2; ++place) {  // My Computer, Network Neighborhood
        rightClick(m_view->topLevelItem(place));
        EXPECT_EQ(m_view->PopupMenu(), nullptr);
        m_view->setCurrentItem(m_view->topLevelItem(place));
        m_view->OnUpdate(nullptr, HINT_DELETE, nullptr);
        EXPECT_THAT(m_sent, IsEmpty()) << "no path, and none of an earlier use";
        CommandState state;
        EXPECT_TRUE(m_view->OnUpdateCommand(CMD_DELETE, state) && !state.enabled);
    }
    GoTo("D:\\a");
    rightClick(m_view->FindNodeByPath("D:\\b"));
    ASSERT_NE(m_view->PopupMenu(), nullptr);
    ASSERT_EQ(m_view->PopupMenu()->actions().size(), 1);
    EXPECT_EQ(m_view->PopupMenu()->actions()[0]->text().remove(QLatin1Char('&')),
              QStringLiteral("Delete Folder Setup"));
    EXPECT_EQ(SelectedPath(), "D:\\a") << "the right button selects nothing";
    m_view->PopupMenu()->actions()[0]->trigger();
    QApplication::processEvents();
    EXPECT_THAT(m_sent, ElementsAre(CMD_NEW_FILE_TYPE_ENTRY));
    EXPECT_EQ(m_deletePath, "D:\\b");

    rightClick(m_view->FindNodeByPath("D:\\b"));
    m_view->PopupMenu()->close();
    m_view->OnUpdate(nullptr, HINT_DELETE, nullptr);
    EXPECT_EQ(m_deletePath, "D:\\a") << "the menu was left without a choice";
    rightClick(m_view->FindNodeByPath("D:\\c"));
    m_view->PopupMenu()->actions()[0]->trigger();
    QApplication::processEvents();
    EXPECT_EQ(m_deletePath, "D:\\c") << "not the folder of an earlier menu";
    EXPECT_THAT(m_sentInDeleteMode, ElementsAre(true, true, true));
    EXPECT_FALSE(m_view->DeleteMode());
}

}  // namespace
}  // namespace quorbit
