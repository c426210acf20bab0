// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/file_enumerator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/magic.h>
#include <sys/statfs.h>
#include <sys/xattr.h>

#include <filesystem>
#include <string>

#include "shell_fixture.h"

namespace quorbit {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

class FileEnumeratorTest : public ShellTest {};

TEST_F(FileEnumeratorTest, GivesTheKindsThatAreAskedFor)
{
    WriteTree(Path(),
              {"folder/", ".secret/", "file=", ".dot=", "link->folder", "dead->nowhere", "pipe|"});
    const auto folder = BindTemp();
    EXPECT_THAT(Names(*folder),
                UnorderedElementsAre("folder", ".secret", "file", ".dot", "link", "dead", "pipe"));
    EXPECT_THAT(Names(*folder, SHCONTF_FOLDERS), UnorderedElementsAre("folder"));
    EXPECT_THAT(Names(*folder, SHCONTF_NONFOLDERS),
                UnorderedElementsAre("file", "link", "dead", "pipe"));
    EXPECT_THAT(Names(*folder, SHCONTF_FOLDERS | SHCONTF_INCLUDEHIDDEN),
                UnorderedElementsAre("folder", ".secret"));
    EXPECT_THAT(Names(*folder, 0), IsEmpty());
    EXPECT_EQ(AttributesOf(*folder, "link"), SFGAO_FILESYSTEM | SFGAO_CANRENAME)
        << "a link is no folder, whatever it points to";
}

TEST_F(FileEnumeratorTest, HidesWhatCarriesTheHiddenBit)
{
    WriteTree(Path(), {"plain/", "marked/"});
    const std::string hidden("0x2");
    if (::setxattr(Path("marked").c_str(), "user.DOSATTRIB", hidden.c_str(), hidden.size() + 1,
                   0) != 0) {
        GTEST_SKIP() << "no user attributes here";
    }
    EXPECT_THAT(Names(*BindTemp(), SHCONTF_FOLDERS), UnorderedElementsAre("plain"));
    EXPECT_THAT(Names(*BindTemp()), UnorderedElementsAre("plain", "marked"));
}

TEST_F(FileEnumeratorTest, KnowsFoldersWithoutSubfoldersWhereLinksTellSo)
{
    WriteTree(Path(), {"none/file=", "some/sub/"});
    const auto folder = BindTemp();
    constexpr std::uint32_t kFolder =
        SFGAO_FOLDER | SFGAO_FILESYSANCESTOR | SFGAO_FILESYSTEM | SFGAO_CANRENAME;
    EXPECT_EQ(AttributesOf(*folder, "some"), kFolder | SFGAO_HASSUBFOLDER);
    struct statfs details {};
    ASSERT_EQ(::statfs(Path().c_str(), &details), 0);
    if (details.f_type != EXT4_SUPER_MAGIC && details.f_type != TMPFS_MAGIC) {
        GTEST_SKIP() << "not told by this file system";
    }
    EXPECT_EQ(AttributesOf(*folder, "none"), kFolder);
    m_strMounts += "30 20 0:40 / " + Path("none") + " rw - nfs4 nas:/x rw\n";
    EXPECT_EQ(AttributesOf(*folder, "none"), kFolder | SFGAO_HASSUBFOLDER)
        << "a mount point is not looked at";
}

TEST_F(FileEnumeratorTest, FoldersThatVanishOrAreSwappedShowAtTheFirstItem)
{
    WriteTree(Path(), {"gone/x=", "swapped/x=", "linked/x=", "other/y="});
    const auto gone = BindTemp("gone");
    const auto swapped = BindTemp("swapped");
    const auto walk = BindTemp("other")->EnumObjects(kEverything, {});
    ASSERT_TRUE(walk->Next().Ok());
    std::filesystem::remove_all(Path("gone"));
    std::filesystem::remove_all(Path("swapped"));
    std::filesystem::remove_all(Path("other"));
    WriteTree(Path(), {"swapped=now a file", "other/z="});
    EXPECT_EQ(gone->EnumObjects(kEverything, {})->Next().GetError().Kind(), ErrorKind::Missing);
    EXPECT_EQ(swapped->EnumObjects(kEverything, {})->Next().GetError().Kind(),
              ErrorKind::NotAFolder);
    const auto next = walk->Next();
    EXPECT_FALSE(next.Ok() && next->has_value()) << "the folder that was opened has no more items";
}

TEST_F(FileEnumeratorTest, TellsDetailsOfTheItemThatCameLast)
{
    WriteTree(Path(), {"a.txt=hello"});
    SetModified(Path("a.txt"), 1'700'000'000);
    const auto items = BindTemp()->EnumObjects(kEverything, {});
    ASSERT_TRUE(items->Next().Ok());
    const auto details = items->ReadDetails();
    ASSERT_TRUE(details.Ok());
    EXPECT_EQ(details->size, 5U);
    EXPECT_EQ(details->modified, 1'700'000'000);
    EXPECT_EQ(details->attributes, kAttributeArchive);
    std::filesystem::remove(Path("a.txt"));
    EXPECT_EQ(items->ReadDetails().GetError().Kind(), ErrorKind::Missing);
}

TEST_F(FileEnumeratorTest, AStopEndsTheWalkThoughNothingMatches)
{
    WriteTree(Path(), {"a=", "b="});
    std::stop_source stop;
    const auto items = BindTemp()->EnumObjects(kEverything, stop.get_token());
    ASSERT_TRUE(items->Next()->has_value());
    stop.request_stop();
    EXPECT_FALSE(items->Next()->has_value());
}

}  // namespace
}  // namespace quorbit
