// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/desktop_folder.h"

#include "platform/shell/item_id_content.h"
#include "shell_fixture.h"

namespace quorbit {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

constexpr std::uint32_t kPlace = SFGAO_FOLDER | SFGAO_FILESYSANCESTOR;

class DesktopFolderTest : public ShellTest {};

TEST_F(DesktopFolderTest, BeginsWithTheComputerAndTheNetworkWhateverFollows)
{
    EXPECT_THAT(Names(*Desktop()), ElementsAre("My Computer", "Network Neighborhood"));
    Write({"Desktop/a folder/", "Desktop/note.txt=1", "Desktop/.hidden="});
    const auto desktop = Desktop();
    const auto names = Names(*desktop, SHCONTF_FOLDERS | SHCONTF_NONFOLDERS);
    ASSERT_EQ(names.size(), 4U);
    EXPECT_EQ(names[0] + names[1], "My ComputerNetwork Neighborhood");
    EXPECT_THAT(Names(*desktop, SHCONTF_NONFOLDERS), ElementsAre("note.txt"));
    EXPECT_EQ(AttributesOf(*desktop, "My Computer"), kPlace | SFGAO_HASSUBFOLDER);
    EXPECT_EQ(AttributesOf(*desktop, "Network Neighborhood"), kPlace) << "nothing in it";
    m_strDesktop = Path("Desktop/note.txt");
    const auto items = Desktop()->EnumObjects(kEverything, {});
    EXPECT_TRUE(items->Next().Ok() && items->Next().Ok());
    EXPECT_EQ(KindOf(items->Next()), ErrorKind::NotAFolder);
}

TEST_F(DesktopFolderTest, ListsDrivesThatAreNotThere)
{
    m_strMounts += "30 20 0:40 / /no/such/mount rw - nfs4 dead:/x rw\n";
    const auto computer = Bind("::My Computer");
    EXPECT_THAT(Names(*computer), ElementsAre("root (/)", "x on dead (/no/such/mount)"));
    EXPECT_EQ(AttributesOf(*computer, "root (/)"), kPlace | SFGAO_HASSUBFOLDER | SFGAO_FILESYSTEM);
    const auto dead = computer->BindToObject(IdOf(*computer, "x on dead (/no/such/mount)"));
    ASSERT_TRUE(dead.Ok()) << "only reading it touches it";
    EXPECT_EQ(KindOf((*dead)->EnumObjects(kEverything, {})->Next()), ErrorKind::Missing);
}

TEST_F(DesktopFolderTest, NetworkHoldsNetworkDrivesAndTheUsersPlaces)
{
    const std::string place = "gvfs/smb-share:server=nas,share=docs";
    std::filesystem::create_directories(Path(place + "/sub"));
    m_strMounts += "30 20 0:40 / /mnt/x rw - nfs4 nas:/x rw\n41 20 0:38 / " + Path("gvfs") +
                   " rw - fuse.gvfsd-fuse x rw,user_id=" + std::to_string(::getuid()) + "\n";
    const auto network = Bind("::Network Neighborhood");
    EXPECT_THAT(Names(*network), ElementsAre("x on nas (/mnt/x)", "docs on nas"));
    EXPECT_NE(AttributesOf(*Desktop(), "Network Neighborhood") & SFGAO_HASSUBFOLDER, 0U);
    EXPECT_THAT(Names(**network->BindToObject(IdOf(*network, "docs on nas")), kEverything,
                      SHGDN_FORPARSING),
                ElementsAre(Path(place + "/sub/")));
    EXPECT_EQ(ReadItemId(*Desktop()->ParseDisplayName(Path(place + "/sub/")))->kind,
              ShellItemKind::Network)
        << "not by way of the root folder";
}

TEST_F(DesktopFolderTest, ResolvesNamesByTheInnermostVolumeAndRefusesThoseThatNameNothing)
{
    m_strMounts += "30 20 8:2 / /mnt/usb rw - ext4 /dev/sdb1 rw\n";
    m_drives['D'] = Path();
    const std::pair<std::string, const char*> cases[] = {{"/mnt/usb/x/y", "/mnt/usb/"},
                                                         {"/mnt/usb", "/mnt/usb/"},
                                                         {"/mnt/usb2/x", "/"},
                                                         {"//mnt///x/", "/"},
                                                         {"d:\\x", "D:\\"},
                                                         {"D:", "D:\\"},
                                                         {"", ""},
                                                         {"a", ""},
                                                         {"./a", ""},
                                                         {"/a/../b", ""},
                                                         {"/a/./b", ""},
                                                         {"/..", ""},
                                                         {"E:\\x", ""},
                                                         {"::", ""},
                                                         {"x:", ""},
                                                         {std::string("/a\0b", 4), ""}};
    for (const auto& [name, volume] : cases) {
        const auto list = Desktop()->ParseDisplayName(name);
        EXPECT_EQ(list ? ReadItemId(CShellPidl::GetNextItemId(*list))->name : "", volume) << name;
    }
    EXPECT_FALSE(Bind("::My Computer")->ParseDisplayName("/").Ok()) << "only the desktop resolves";
}

TEST_F(DesktopFolderTest, EveryItemComesBackFromItsParsingName)
{
    const std::vector<std::string> odd = {
        " ",        "a b ",        "-x",          "a\nb",
        "\xFF\xFE", "\\xFF",       "back\\sl",    "C:",
        "C:\\x",    "caf\xC3\xA9", "...",         "::My Computer",
        "a\x01",    "%20",         "ni\xCC\x83o", std::string(255, '\xFE')};
    Write({"Desktop/d/", "Desktop/f="});
    for (const std::string& name : odd)
        Write({"files/" + name + "=", "folders/" + name + "/"});
    const auto desktop = Desktop();
    std::size_t items = 0;
    for (const auto& folder : {desktop, Bind("::My Computer"), BindTemp("files"),
                               BindTemp("folders"), BindTemp("Desktop")}) {
        for (const ItemIdList& id : Ids(*folder)) {
            const auto full = CShellPidl::GetAbsoluteIdList(*desktop, *folder, id);
            ASSERT_TRUE(full.has_value());
            ItemIdView last = *full;
            ShellFolderPtr parent = desktop;
            for (; ItemIdSize(CShellPidl::GetNextItemId(last)) != 0;
                 last = CShellPidl::GetNextItemId(last))
                parent = *parent->BindToObject(last);
            EXPECT_TRUE(CShellPidl::IsSameItem(*parent, last, *folder, id));
            EXPECT_EQ(*parent->CompareIDs(last, id), 0);
            ++items;
        }
    }
    EXPECT_EQ(items, 2 * odd.size() + 4 + 1 + 2);
}

TEST_F(DesktopFolderTest, ANameThatWouldBeAnotherPathOnAMappedDriveHasNone)
{
    Write({"a\\b=", "a/b=", "fold\\er/"});
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
    using enum ShellItemKind;
    const auto folder = BindTemp();
    const ItemIdList bad[] = {{},
                              ItemIdList({5, 0, 4, 0}),
                              ItemIdList({5, 0, 99, 0, 'a', 0, 0}),
                              ItemIdList({7, 0, 3, 0, 9, 0, '/', 0, 0}),
                              MakeItemId({Folder, 0, "..", {}}),
                              MakeItemId({File, 0, "a/b", {}}),
                              MakeItemId({File, 0, "", {}})};
    for (const ItemIdList& id : bad) {
        EXPECT_FALSE(folder->GetAttributesOf(id, 0xFFFFFFFF).Ok());
        EXPECT_FALSE(folder->GetDisplayNameOf(id, SHGDN_FORPARSING).Ok());
        EXPECT_FALSE(folder->BindToObject(id).Ok());
        EXPECT_FALSE(folder->CompareIDs(id, id).Ok());
        EXPECT_FALSE(CShellPidl::IsSameItem(*folder, id, *folder, id));
    }
    EXPECT_EQ(KindOf(folder->BindToObject(MakeItemId({File, 0, "a", {}}))), ErrorKind::NotAFolder);
    EXPECT_TRUE(MakeItemId({File, 0, std::string(70'000, 'a'), {}}).IsNull());
}

TEST_F(DesktopFolderTest, SortsAsAPersonDoesAndOnlyOneAndTheSameNameIsEqual)
{
    using enum ShellItemKind;
    const std::vector<ItemIdContent> sorted = {
        {Computer, 0, {}, {}},   {Network, 0, {}, {}},      {Volume, 0, "/", "z"},
        {Volume, 0, "/b/", "a"}, {Folder, 0, "B10", {}},    {Folder, 1, "c", {}},
        {File, 0, "a2", {}},     {File, 0, "A10", {}},      {Link, 0, "a10", {}},
        {File, 0, "B", {}},      {File, 0, "\xC3\xA9", {}}, {Special, 0, "f", {}}};
    for (std::size_t i = 0; i < sorted.size(); ++i)
        for (std::size_t j = 0; j < sorted.size(); ++j)
            EXPECT_TRUE((*Desktop()->CompareIDs(MakeItemId(sorted[i]), MakeItemId(sorted[j])) <=>
                         0) == (i <=> j))
                << i << " " << j;
    // All of them alike to a reader, or not to be read at all.
    const std::vector<std::string> names = {
        "a",    "A",    "\xC3\xA9",     "e\xCC\x81", "01",    "1",           "001",
        "\xFF", "\xFE", "\xEF\xBF\xBD", "a\x01",     "a\x02", "\xE2\x80\x8B"};
    const NameOrder order;
    for (const std::string& a : names)
        for (const std::string& b : names) {
            EXPECT_EQ(order.Compare(a, b) == 0, a == b);
            EXPECT_EQ(order.Compare(a, b) < 0, order.Compare(b, a) > 0);
            for (const std::string& c : names)
                EXPECT_FALSE(order.Compare(a, b) < 0 && order.Compare(b, c) < 0 &&
                             order.Compare(a, c) >= 0);
        }
}

}  // namespace
}  // namespace quorbit
