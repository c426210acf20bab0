// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/shell/file_enumerator.h"

#include <filesystem>

#include "support/shell_test.h"

namespace quorbit {
namespace {

using testing::UnorderedElementsAre;

class FileEnumeratorTest : public ShellTest {};

TEST_F(FileEnumeratorTest, GivesTheKindsThatAreAskedFor)
{
    Write({"folder/", ".secret/", "file=", ".dot=", "link->folder", "dead->nowhere", "pipe|"});
    const bool marked = SetAttribute(Path("file"), "user.DOSATTRIB", std::string_view("0x2", 4));
    const auto folder = BindTemp();
    EXPECT_THAT(Names(*folder),
                UnorderedElementsAre("folder", ".secret", "file", ".dot", "link", "dead", "pipe"));
    EXPECT_THAT(Names(*folder, SHCONTF_FOLDERS), UnorderedElementsAre("folder"));
    TreeLines files = Names(*folder, SHCONTF_NONFOLDERS);
    if (marked) {
        files.emplace_back("file");  // not listed above, because its stored bit hides it
    }
    EXPECT_THAT(files, UnorderedElementsAre("file", "link", "dead", "pipe"));
    EXPECT_THAT(Names(*folder, SHCONTF_FOLDERS | SHCONTF_INCLUDEHIDDEN),
                UnorderedElementsAre("folder", ".secret"));
    EXPECT_EQ(AttributesOf(*folder, "link"), SFGAO_FILESYSTEM | SFGAO_CANRENAME)
        << "a link is no folder, whatever it points to";
}

TEST_F(FileEnumeratorTest, FoldersThatVanishOrAreSwappedShowAtTheFirstItem)
{
    Write({"gone/x=", "swapped/x=", "other/y="});
    const auto gone = BindTemp("gone");
    const auto swapped = BindTemp("swapped");
    const auto walk = BindTemp("other")->EnumObjects(kEverything, {});
    ASSERT_TRUE(walk->Next().Ok());
    for (const char* name : {"gone", "swapped", "other"}) {
        std::filesystem::remove_all(Path(name));
    }
    Write({"swapped=now a file", "other/z="});
    EXPECT_EQ(KindOf(gone->EnumObjects(kEverything, {})->Next()), ErrorKind::Missing);
    EXPECT_EQ(KindOf(swapped->EnumObjects(kEverything, {})->Next()), ErrorKind::NotAFolder);
    const auto next = walk->Next();
    EXPECT_FALSE(next.Ok() && next->has_value()) << "the folder that was opened has no more items";
}

}  // namespace
}  // namespace quorbit
