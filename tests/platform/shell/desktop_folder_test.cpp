// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/desktop_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "platform/shell/item_id_content.h"
#include "shell_fixture.h"

namespace quorbit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr std::uint32_t kPlace = SFGAO_FOLDER | SFGAO_FILESYSANCESTOR;

class DesktopFolderTest : public ShellTest {
protected:
    [[nodiscard]] std::string GvfsLine() const
    {
        return "41 20 0:38 / " + Path("gvfs") +
               " rw - fuse.gvfsd-fuse gvfsd-fuse rw,user_id=" + std::to_string(::getuid()) + "\n";
    }
};

TEST_F(DesktopFolderTest, BeginsWithTheComputerAndTheNetwork)
{
    WriteTree(Path(), {"Desktop/a folder/", "Desktop/note.txt=1", "Desktop/.hidden="});
    const auto desktop = Desktop();
    auto names = Names(*desktop, SHCONTF_FOLDERS | SHCONTF_NONFOLDERS);
    ASSERT_EQ(names.size(), 4U);
    EXPECT_EQ(names[0], "My Computer");
    EXPECT_EQ(names[1], "Network Neighborhood");
    EXPECT_THAT(
        names, UnorderedElementsAre("My Computer", "Network Neighborhood", "a folder", "note.txt"));
    EXPECT_THAT(Names(*desktop, SHCONTF_NONFOLDERS), ElementsAre("note.txt"));
    EXPECT_EQ(AttributesOf(*desktop, "My Computer"), kPlace | SFGAO_HASSUBFOLDER);
    EXPECT_EQ(AttributesOf(*desktop, "Network Neighborhood"), kPlace) << "nothing in it";
    EXPECT_EQ(AttributesOf(*desktop, "note.txt"), SFGAO_FILESYSTEM | SFGAO_CANRENAME);
}

TEST_F(DesktopFolderTest, StandsWithoutADesktopFolder)
{
    for (const std::string& folder : {std::string(), Path("missing")}) {
        m_strDesktop = folder;
        EXPECT_THAT(Names(*Desktop()), ElementsAre("My Computer", "Network Neighborhood"));
    }
}

TEST_F(DesktopFolderTest, TellsOfADesktopFolderThatCannotBeRead)
{
    WriteTree(Path(), {"Desktop=a file"});
    const auto items = Desktop()->EnumObjects(kEverything, {});
    EXPECT_TRUE(items->Next().Ok());
    EXPECT_TRUE(items->Next().Ok());
    EXPECT_EQ(items->Next().GetError().Kind(), ErrorKind::NotAFolder);
}

TEST_F(DesktopFolderTest, ListsDrivesThatAreNotThere)
{
    m_strMounts += "30 20 0:40 / /no/such/mount rw - nfs4 dead:/x rw\n";
    const auto computer = Bind("::My Computer");
    EXPECT_THAT(Names(*computer), ElementsAre("root (/)", "x on dead (/no/such/mount)"));
    EXPECT_EQ(AttributesOf(*computer, "root (/)"), kPlace | SFGAO_HASSUBFOLDER | SFGAO_FILESYSTEM);
    EXPECT_THAT(Names(*computer, SHCONTF_NONFOLDERS), IsEmpty());
    const auto dead = computer->BindToObject(IdOf(*computer, "x on dead (/no/such/mount)"));
    ASSERT_TRUE(dead.Ok()) << "only reading it touches it";
    EXPECT_EQ((*dead)->EnumObjects(kEverything, {})->Next().GetError().Kind(), ErrorKind::Missing);
}

TEST_F(DesktopFolderTest, NetworkHoldsNetworkDrivesAndTheUsersPlaces)
{
    std::filesystem::create_directories(Path("gvfs/smb-share:server=nas,share=docs/sub"));
    m_strMounts += "30 20 0:40 / /mnt/x rw - nfs4 nas:/x rw\n" + GvfsLine();
    const auto network = Bind("::Network Neighborhood");
    EXPECT_THAT(Names(*network), ElementsAre("x on nas (/mnt/x)", "docs on nas"));
    EXPECT_NE(AttributesOf(*Desktop(), "Network Neighborhood") & SFGAO_HASSUBFOLDER, 0U);

    const auto place = network->BindToObject(IdOf(*network, "docs on nas"));
    ASSERT_TRUE(place.Ok());
    EXPECT_THAT(Names(**place, kEverything, SHGDN_FORPARSING),
                ElementsAre(Path("gvfs/smb-share:server=nas,share=docs/sub/")));
    const auto list =
        Desktop()->ParseDisplayName(Path("gvfs/smb-share:server=nas,share=docs/sub/"));
    EXPECT_EQ(ReadItemId(*list)->kind, ShellItemKind::Network) << "not by way of the root folder";
}

TEST_F(DesktopFolderTest, ResolvesNamesByTheInnermostVolume)
{
    m_strMounts += "30 20 8:2 / /mnt/usb rw - ext4 /dev/sdb1 rw\n";
    m_drives['D'] = Path();
    const auto volumeOf = [this](const std::string& name) {
        const auto list = Desktop()->ParseDisplayName(name);
        const ItemIdView second = list ? CShellPidl::GetNextItemId(*list) : ItemIdView();
        const auto volume = ReadItemId(second);
        return volume ? std::string(volume->name) : "(none)";
    };
    EXPECT_EQ(volumeOf("/mnt/usb/x/y"), "/mnt/usb/");
    EXPECT_EQ(volumeOf("/mnt/usb"), "/mnt/usb/");
    EXPECT_EQ(volumeOf("/mnt/usb2/x"), "/");
    EXPECT_EQ(volumeOf("//mnt///x/"), "/");
    EXPECT_EQ(volumeOf("d:\\x"), "D:\\");
    EXPECT_EQ(volumeOf("D:"), "D:\\");
}

TEST_F(DesktopFolderTest, RefusesNamesThatNameNothing)
{
    for (const std::string name :
         {"", "a", "./a", "/a/../b", "/a/./b", "/..", "E:\\x", "::", "x:"}) {
        EXPECT_FALSE(Desktop()->ParseDisplayName(name).Ok()) << name;
    }
    EXPECT_FALSE(Desktop()->ParseDisplayName(std::string("/a\0b", 4)).Ok());
    EXPECT_FALSE(Bind("::My Computer")->ParseDisplayName("/").Ok()) << "only the desktop resolves";
}

TEST_F(DesktopFolderTest, EveryItemComesBackFromItsParsingName)
{
    const std::vector<std::string> odd = {
        " ",     "a b ",        "-x",  "a\nb",          "\xFF\xFE", "\\xFF", "back\\sl",   "C:",
        "C:\\x", "caf\xC3\xA9", "...", "::My Computer", "a\x01",    "%20",   "ni\xCC\x83o"};
    TreeLines tree = {"Desktop/d/", "Desktop/f="};
    for (const std::string& name : odd) {
        tree.push_back("files/" + name + "=");
        tree.push_back("folders/" + name + "/");
    }
    WriteTree(Path(), tree);
    const auto desktop = Desktop();
    std::size_t items = 0;
    for (const auto& folder : {desktop, Bind("::My Computer"), BindTemp("files"),
                               BindTemp("folders"), BindTemp("Desktop")}) {
        for (const ItemIdList& id : Ids(*folder)) {
            const auto full = CShellPidl::GetAbsoluteIdList(*desktop, *folder, id);
            ASSERT_TRUE(full.has_value());
            ItemIdView last = *full;
            ShellFolderPtr parent = desktop;
            while (ItemIdSize(CShellPidl::GetNextItemId(last)) != 0) {
                parent = *parent->BindToObject(last);
                last = CShellPidl::GetNextItemId(last);
            }
            EXPECT_TRUE(CShellPidl::IsSameItem(*parent, last, *folder, id));
            EXPECT_EQ(*parent->CompareIDs(last, id), 0);
            ++items;
        }
    }
    EXPECT_EQ(items, 2 * odd.size() + 4 + 1 + 2);
}

TEST_F(DesktopFolderTest, ANameThatWouldBeAnotherPathOnAMappedDriveHasNone)
{
    WriteTree(Path(), {"a\\b=", "a/b=", "fold\\er/"});
    m_drives['C'] = Path();
    const auto drive = Bind("C:\\");
    EXPECT_THAT(Names(*drive, kEverything, SHGDN_FORPARSING),
                UnorderedElementsAre("C:\\a\\", "(none)", "(none)"));
    EXPECT_EQ(AttributesOf(*drive, "a\\b"), 0U);
    EXPECT_EQ(AttributesOf(*drive, "fold\\er"), SFGAO_FOLDER);
    EXPECT_FALSE(drive->BindToObject(IdOf(*drive, "fold\\er")).Ok());
    EXPECT_NE(AttributesOf(*BindTemp(), "a\\b") & SFGAO_FILESYSTEM, 0U) << "by its own path it can";
}

TEST_F(DesktopFolderTest, RefusesIdsThatAreNotItsOwn)
{
    const auto folder = BindTemp();
    const std::vector<ItemIdList> bad = {{},
                                         ItemIdList({0, 0}),
                                         ItemIdList({5, 0, 4, 0}),
                                         ItemIdList({5, 0, 99, 0, 'a', 0, 0}),
                                         ItemIdList({7, 0, 3, 0, 9, 0, '/', 0, 0}),
                                         MakeItemId({ShellItemKind::Folder, 0, "..", {}}),
                                         MakeItemId({ShellItemKind::File, 0, "a/b", {}}),
                                         MakeItemId({ShellItemKind::File, 0, "", {}})};
    for (const ItemIdList& id : bad) {
        EXPECT_FALSE(folder->GetAttributesOf(id, 0xFFFFFFFF).Ok());
        EXPECT_FALSE(folder->GetDisplayNameOf(id, SHGDN_FORPARSING).Ok());
        EXPECT_FALSE(folder->BindToObject(id).Ok());
        EXPECT_FALSE(folder->CompareIDs(id, id).Ok());
    }
    const ItemIdList file = MakeItemId({ShellItemKind::File, 0, "a", {}});
    EXPECT_EQ(folder->BindToObject(file).GetError().Kind(), ErrorKind::NotAFolder);
    EXPECT_TRUE(MakeItemId({ShellItemKind::File, 0, std::string(70'000, 'a'), {}}).IsNull());
}

TEST_F(DesktopFolderTest, SortsAsAPersonDoes)
{
    using enum ShellItemKind;
    const std::vector<ItemIdContent> sorted = {
        {Computer, 0, {}, {}},   {Network, 0, {}, {}},      {Volume, 0, "/", "z"},
        {Volume, 0, "/b/", "a"}, {Folder, 0, "B10", {}},    {Folder, 1, "c", {}},
        {File, 0, "a2", {}},     {File, 0, "A10", {}},      {Link, 0, "a10", {}},
        {File, 0, "B", {}},      {File, 0, "\xC3\xA9", {}}, {Special, 0, "f", {}}};
    const auto desktop = Desktop();
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        for (std::size_t j = 0; j < sorted.size(); ++j) {
            const int order = *desktop->CompareIDs(MakeItemId(sorted[i]), MakeItemId(sorted[j]));
            EXPECT_EQ(order < 0, i < j) << i << " " << j;
            EXPECT_EQ(order > 0, i > j) << i << " " << j;
        }
    }
}

TEST_F(DesktopFolderTest, OnlyOneAndTheSameNameIsEqual)
{
    // All of them alike to a reader, or not to be read at all.
    const std::vector<std::string> names = {
        "a",    "A",    "\xC3\xA9",     "e\xCC\x81", "01",    "1",           "001",
        "\xFF", "\xFE", "\xEF\xBF\xBD", "a\x01",     "a\x02", "\xE2\x80\x8B"};
    const NameOrder order;
    for (const std::string& a : names) {
        for (const std::string& b : names) {
            EXPECT_EQ(order.Compare(a, b) == 0, a == b);
            EXPECT_EQ(order.Compare(a, b) < 0, order.Compare(b, a) > 0);
            for (const std::string& c : names) {
                EXPECT_FALSE(order.Compare(a, b) < 0 && order.Compare(b, c) < 0 &&
                             order.Compare(a, c) >= 0);
            }
        }
    }
}

}  // namespace
}  // namespace quorbit
