// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/drive_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <filesystem>

#include "drive_fixture.h"
#include "panes/drive_tree_filter.h"
#include "platform/shell/dead_mount.h"

namespace quorbit {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

TEST(DriveTreeFilterTest, LetsThroughWhatHoldsFiles)
{
    constexpr std::uint32_t kPlace = SFGAO_FOLDER | SFGAO_FILESYSANCESTOR;
    constexpr std::uint32_t kFolder = SFGAO_FOLDER | SFGAO_FILESYSTEM;
    using enum TreeVerdict;
    struct Case {
        TreeCandidate item;
        TreeVerdict verdict;
    };
    const Case cases[] = {
        {{SFGAO_CANRENAME, "x", false, false, 0}, Count},
        {{SFGAO_FOLDER, "x", false, false, 0}, Skip},
        {{SFGAO_FILESYSTEM, "file", false, false, 0}, Count},
        {{kFolder, "folder", true, false, 5}, Make},
        {{kPlace, "My Machine", true, false, 0}, Make},
        {{kPlace, "Printers", true, false, 1}, Skip},
        {{kPlace, "Network Neighborhood", true, false, 1}, Make},
        {{kPlace, "network neighborhood", true, false, 1}, Skip},
        {{kFolder, "Control Panel", true, false, 0}, Skip},
        {{kFolder, "Control Panel", false, false, 3}, Skip},
        {{kFolder, "control panel", false, false, 3}, Make},
        {{kPlace, "Control Panel", false, true, 3}, Make},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(DriveTreeVerdict(c.item), c.verdict) << c.item.name << c.item.attributes;
    }
}

class DriveViewTest : public DriveTest {
protected:
    [[nodiscard]] static ShellListItem Row(const ShellTreeItem& folder, const std::string& name)
    {
        ShellListItem row;
        row.m_pFolder = *folder.m_pFolder->BindToObject(folder.m_pidlItem);
        row.m_pidlItem = IdOf(*row.m_pFolder, name);
        return row;
    }
    [[nodiscard]] std::string SelectedPath() const
    {
        std::string path;
        m_view->GetItemPath(m_view->SelectedNode(), path);
        return path;
    }
};

TEST_F(DriveViewTest, BeginsWithTheDrivesBelowTheRootNode)
{
    WriteTree(Path(), {"Desktop/work/", "Desktop/note.txt="});
    Make({"a/"});
    EXPECT_THAT(Texts(m_view->invisibleRootItem()),
                ElementsAre("My Computer", "Network Neighborhood", "work"));
    EXPECT_EQ(m_view->SelectedNode(), m_view->RootNode());
    EXPECT_TRUE(m_view->RootNode()->isExpanded());
    EXPECT_EQ(m_view->RootNode()->childCount(), 2);
    EXPECT_EQ(m_view->CurrentPath(), "My Computer");
    EXPECT_EQ(m_list.folder, "::My Computer");
    EXPECT_EQ(m_view->GetSelectedText(), "My Computer");
}

TEST_F(DriveViewTest, StaysEmptyWhenTheProgramWasStartedToRun)
{
    Make({"a/"}, 1);
    EXPECT_EQ(m_view->topLevelItemCount(), 0);
    Refresh();
    EXPECT_THAT(m_list.hints, IsEmpty());
    EXPECT_EQ(m_view->GetSelectedItemData(), nullptr);
    EXPECT_EQ(m_view->GetDeletePath(), "");
}

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
    EXPECT_EQ(m_view->CurrentPath(), "D:\\a10\\x") << "the network has no path";
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

TEST_F(DriveViewTest, CollapsingSelectsTheNodeThatHidesTheSelectedOne)
{
    Make({"a/x/"});
    Expand("D:\\");
    GoTo("D:\\a\\x");
    m_view->FindNodeByPath("D:\\a")->setExpanded(false);
    EXPECT_EQ(SelectedPath(), "D:\\a");
}

TEST_F(DriveViewTest, FindsNodesByTheLongestVolume)
{
    m_strMounts += "30 20 8:2 / /mnt/usb rw - ext4 /dev/sdb1 rw\n";
    Make({"dir/Sub/deep/", "dir/sub2/"});
    std::string path;
    const auto pathOf = [&](const std::string& of) {
        ShellTreeNode* node = m_view->FindNodeByPath(of);
        return m_view->GetItemPath(node, path) ? path : "(none)";
    };
    EXPECT_EQ(pathOf("/mnt/usb/x"), "/mnt/usb") << "its children have not been read";
    EXPECT_EQ(pathOf("/mnt/usb2"), "/");
    EXPECT_EQ(pathOf("E:\\x"), "(none)");
    EXPECT_EQ(pathOf("D:\\dir\\Sub"), "D:\\") << "not read yet";
    GoTo("D:\\dir\\Sub");
    EXPECT_EQ(pathOf("D:"), "D:\\");
    EXPECT_EQ(pathOf("d:\\DIR\\sub"), "D:\\dir\\Sub");
    EXPECT_EQ(pathOf("D:\\dir\\sub2\\"), "D:\\dir\\sub2");
    EXPECT_EQ(pathOf("D:\\dir\\none"), "(none)");
    EXPECT_EQ(pathOf("D:\\dir\\sub2\\none"), "(none)");
}

TEST_F(DriveViewTest, GoesDownAsFarAsThePathExists)
{
    Make({"dir/a\nb/"});
    int ends = 0;
    m_view->GoToPath("D:\\dir\\none\\deeper", [&] { ++ends; });
    ASSERT_TRUE(WaitFor([&] { return ends == 1; }));
    EXPECT_EQ(SelectedPath(), "D:\\dir");
    GoTo("D:\\dir\\a\nb");
    EXPECT_EQ(SelectedPath(), "D:\\dir\\a\nb") << "by its bytes, not by what is shown";
    GoTo("E:\\x");
    EXPECT_EQ(SelectedPath(), "D:\\dir\\a\nb");
}

TEST_F(DriveViewTest, OpensTheRowThatWasDoubleClickedInTheList)
{
    Make({"same/same/", "same/file="});
    m_view->SelectNode(*m_view->FindVolume("D:\\"));  // its children are being read from here on
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
    EXPECT_THAT(Texts("D:\\"), ElementsAre(".h", "a", "a10", "a2", "b", "Bb"))
        << "by text, nothing hidden added, nothing that exists removed";
    EXPECT_THAT(Texts("D:\\a"), ElementsAre("new", "y"));
    EXPECT_THAT(Texts("D:\\b"), ElementsAre("z")) << "not expanded";
    EXPECT_TRUE(m_view->FindNodeByPath("D:\\a2")->HasMark());
    EXPECT_EQ(SelectedPath(), "D:\\b");
    EXPECT_THAT(m_list.hints, ElementsAre(HINT_FOLDER_SELECTED));
    EXPECT_EQ(m_list.folder, "D:\\b\\");
}

TEST_F(DriveViewTest, RefreshCollapsesANodeThatLostItsLastChild)
{
    Make({"a/x/"});
    Expand("D:\\");
    ShellTreeNode* node = Expand("D:\\a");
    GoTo("D:\\a\\x");
    std::filesystem::remove(Path("d/a/x"));
    Refresh();
    EXPECT_FALSE(node->isExpanded());
    EXPECT_EQ(node->childCount(), 0);
    EXPECT_EQ(SelectedPath(), "D:\\a");
    EXPECT_EQ(m_list.folder, "D:\\a\\") << "the list leaves the folder that is gone";
    WriteTree(Path("d"), {"a/later/"});
    node->setExpanded(true);
    Settle();
    EXPECT_THAT(Texts("D:\\a"), ElementsAre("later"));
}

TEST_F(DriveViewTest, RefreshFollowsAFolderOnTheDesktop)
{
    WriteTree(Path(), {"Desktop/work/a/", "Desktop/work/b/"});
    Make({});
    QTreeWidgetItem* work = m_view->topLevelItem(2);
    work->setExpanded(true);
    Settle();
    m_view->setCurrentItem(work->child(1));
    std::filesystem::remove(Path("Desktop/work/b"));
    WriteTree(Path(), {"Desktop/work/c/"});
    Refresh();
    EXPECT_THAT(Texts(work), ElementsAre("a", "c"));
    EXPECT_EQ(m_list.folder, Path("Desktop/work/a/")) << "the list leaves the folder that is gone";
}

TEST_F(DriveViewTest, RefreshFollowsTheDesktopItself)
{
    WriteTree(Path(), {"Desktop/gone/", "Desktop/stays/", "Desktop/.h/"});
    Make({});
    std::filesystem::remove(Path("Desktop/gone"));
    WriteTree(Path(), {"Desktop/new/sub/", "Desktop/.h2/", "Desktop/file="});
    Refresh();
    EXPECT_THAT(Texts(m_view->invisibleRootItem()),
                ElementsAre("My Computer", "Network Neighborhood", ".h", "new", "stays"));
    EXPECT_EQ(m_view->RootNode(), m_view->SelectedNode());
    EXPECT_TRUE(NodeOf(m_view->topLevelItem(3))->HasMark());
}

TEST_F(DriveViewTest, RefreshKeepsWhatItCannotRead)
{
    Make({"a/x/"});
    Expand("D:\\");
    Expand("D:\\a");
    // Not missing, but no folder that could tell what it holds; for root as well.
    std::filesystem::rename(Path("d"), Path("away"));
    WriteContent(Path("d"), "");
    Refresh();
    EXPECT_THAT(Texts("D:\\"), ElementsAre("a"));
    EXPECT_THAT(Texts("D:\\a"), ElementsAre("x"));
}

TEST_F(DriveViewTest, RefreshFollowsTheDrives)
{
    m_strMounts += "30 20 8:2 / /mnt/usb rw - ext4 /dev/sdb1 rw\n";
    Make({});
    ShellTreeNode* root = m_view->RootNode();
    ASSERT_EQ(root->childCount(), 3);
    m_view->setCurrentItem(m_view->FindVolume("/mnt/usb"));
    Settle();
    m_strMounts =
        "20 1 8:1 / / rw - ext4 /dev/sda1 rw\n"
        "31 20 8:3 / /mnt/card rw - ext4 /dev/sdc1 rw\n"
        "32 20 8:4 / /mnt/disk rw - ext4 /dev/sdd1 rw\n";
    Refresh();
    std::vector<std::string> paths;
    for (int i = 0; i < root->childCount(); ++i) {
        m_view->GetItemPath(root->child(i), paths.emplace_back());
    }
    EXPECT_THAT(paths, testing::UnorderedElementsAre("/", "/mnt/card", "/mnt/disk", "D:\\"));
    EXPECT_NE(m_view->SelectedNode(), nullptr) << "something else is selected";
}

TEST_F(DriveViewTest, ADriveThatDoesNotAnswerHoldsUpItselfAlone)
{
    std::filesystem::create_directory(Path("dead"));
    const DeadMount dead(Path("dead"));
    if (!dead.IsMounted()) {
        GTEST_SKIP() << "mounting needs root";
    }
    m_drives['E'] = Path("dead");
    Make({"a/"});
    m_view->FindVolume("E:\\")->setExpanded(true);
    m_view->setCurrentItem(m_view->FindVolume("E:\\"));
    const auto waits = [&] { return m_view->viewport()->cursor().shape() == Qt::WaitCursor; };
    EXPECT_TRUE(waits());
    m_view->setCurrentItem(m_view->FindVolume("D:\\"));
    EXPECT_TRUE(WaitFor([&] { return !waits(); })) << "whoever goes elsewhere does not wait";
    m_view->setCurrentItem(m_view->FindVolume("E:\\"));
    EXPECT_TRUE(waits());
    m_view->FindVolume("E:\\")->setExpanded(false);
    EXPECT_FALSE(waits());
    m_view->FindVolume("D:\\")->setExpanded(true);
    EXPECT_TRUE(WaitFor([&] { return m_view->FindVolume("D:\\")->m_bFilled; }));
    WriteTree(Path("d"), {"b/"});
    m_view->OnCommand(CMD_REFRESH);
    EXPECT_TRUE(WaitFor([&] { return Texts("D:\\").size() == 2; }));
    EXPECT_EQ(m_list.folder, "E:\\");
    EXPECT_TRUE(m_view->IsFilling());
}

TEST_F(DriveViewTest, DeletesWhatIsSelectedOrWhatTheMenuWasOpenedOn)
{
    Make({"a/", "b/"});
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
    rightClick(m_view->RootNode());
    EXPECT_EQ(m_view->PopupMenu(), nullptr);
    rightClick(m_view->FindNodeByPath("D:\\b"));
    ASSERT_NE(m_view->PopupMenu(), nullptr);
    ASSERT_EQ(m_view->PopupMenu()->actions().size(), 1);
    EXPECT_EQ(m_view->PopupMenu()->actions()[0]->text().remove(QLatin1Char('&')),
              QStringLiteral("Delete Folder Setup"));
    EXPECT_EQ(SelectedPath(), "D:\\a") << "the right button selects nothing";
    EXPECT_EQ(m_view->GetSourcePath(), "D:\\b");
    m_view->PopupMenu()->actions()[0]->trigger();
    QApplication::processEvents();
    EXPECT_THAT(m_sent, ElementsAre(CMD_NEW_FILE_TYPE_ENTRY));
    EXPECT_EQ(m_deletePath, "D:\\b");

    rightClick(m_view->FindNodeByPath("D:\\b"));
    m_view->PopupMenu()->close();
    m_view->OnUpdate(nullptr, HINT_DELETE, nullptr);
    EXPECT_EQ(m_deletePath, "D:\\a") << "the menu was left without a choice";
    EXPECT_THAT(m_sentInDeleteMode, ElementsAre(true, true));
    EXPECT_FALSE(m_view->DeleteMode());
}

TEST_F(DriveViewTest, StoresItsSizeUnlessTheFrameIsMinimised)
{
    Make({});
    m_minimised = true;
    m_view->SaveLayout();
    EXPECT_EQ(m_profile.DriveViewSize(), (PaneSize{200, 260}));
    m_minimised = false;
    m_view->SaveLayout();
    EXPECT_EQ(m_profile.DriveViewSize(), (PaneSize{400, 300}));
}

}  // namespace
}  // namespace quorbit
