// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/desktop_folder.h"

#include "platform/shell/item_id_content.h"
#include "support/shell_test.h"

namespace quorbit {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

constexpr std::uint32_t kPlace = SFGAO_FOLDER | SFGAO_FILESYSANCESTOR;

class DesktopFolderTest : public ShellTest {};

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

TEST_F(DesktopFolderTest, ResolvesNamesByTheInnermostVolumeAndRefusesThoseThatNameNothing)
{
    m_strMounts += "30 20 8:2 / /mnt/usb rw - ext4 /dev/sdb1 rw\n";
    m_drives["D:"] = Path();
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
    for (const std::string& name : odd) {
        Write({"files/" + name + "=", "folders/" + name + "/"});
    }
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
                 last = CShellPidl::GetNextItemId(last)) {
                parent = *parent->BindToObject(last);
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
    Write({"a\\b=", "a/b=", "fold\\er/"});
    m_drives["C:"] = Path();
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

}  // namespace
}  // namespace quorbit
