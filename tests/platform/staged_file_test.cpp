// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/staged_file.h"

#include <sys/stat.h>

#include <filesystem>

#include "platform/leftover_name.h"
#include "support/folder_test.h"
#include "support/full_disk.h"
#include "support/without_hard_links.h"

namespace quorbit {
namespace {

class StagedFileTest : public FolderTest {};

TEST_F(StagedFileTest, CreatesAFileAndReplacesItWithItsPermissionsKeptAndSweepsLeftovers)
{
    const std::string a = Path(std::string(255, 'a'));  // NAME_MAX: no room for a suffix
    Write({MakeLeftoverName() + "=half a fi"});         // of a killed writer
    const mode_t mask = ::umask(027);
    const Status created = ReplaceFile(a, "one");
    ::umask(mask);
    ASSERT_TRUE(created.Ok());
    EXPECT_EQ(ContentOf(a), "one");
    EXPECT_EQ(ModeOf(a), 0640U);

    SetMode(a, 0755);
    const bool hasAttributes = SetAttribute(a, "user.note", "n");
    ASSERT_TRUE(ReplaceFile(a, std::string(300'000, 'x')).Ok());
    EXPECT_EQ(ContentOf(a), std::string(300'000, 'x'));
    EXPECT_EQ(ModeOf(a), 0755U);
    EXPECT_EQ(AttributeOf(a, "user.note"), hasAttributes ? "n" : "(none)");
    EXPECT_EQ(Tree().size(), 1U);
}

TEST_F(StagedFileTest, AFullDiskLeavesTheOldFileAndNothingElse)
{
    Write({"old=old content"});
    for (const char* name : {"old", "new"}) {
        EXPECT_EQ(KindOf(OnFullDisk(5, [&] { return ReplaceFile(Path(name), "new content"); })),
                  ErrorKind::DiskFull);
    }
    EXPECT_EQ(Tree(), TreeLines{"old=old content"});
}

TEST_F(StagedFileTest, NeedsNoHardLinksAndCreateReplacesNothing)
{
    const auto write = [this] {
        const bool created = ReplaceFile(Path("new"), "1").Ok();
        const bool refused = KindOf(CreateNewFile(Path("new"), "2")) == ErrorKind::AlreadyExists;
        const bool other = CreateNewFile(Path("other"), "3").Ok();
        return (created ? 1 : 0) + (refused ? 2 : 0) + (other ? 4 : 0);
    };
    EXPECT_EQ(write(), 7);
    EXPECT_EQ(Tree(), (TreeLines{"new=1", "other=3"}));
    std::filesystem::remove(Path("new"));
    std::filesystem::remove(Path("other"));
    const int done = WithoutHardLinks(write);
    if (done == 100) {
        GTEST_SKIP() << "no system call filter";
    }
    EXPECT_EQ(done, 7);
    EXPECT_EQ(Tree(), (TreeLines{"new=1", "other=3"}));
}

TEST_F(StagedFileTest, FollowsLinksAlsoToAFileYetToBeMade)
{
    Write({"real/", "relative->real/file", "absolute->" + Path("relative"), "loop->loop"});
    for (const std::string content : {"first", "second"}) {
        ASSERT_TRUE(ReplaceFile(Path("absolute"), content).Ok());
        EXPECT_FALSE(ReplaceFile(Path("loop"), "x").Ok());
        EXPECT_EQ(Tree(), (TreeLines{"absolute->" + Path("relative"), "loop->loop", "real/",
                                     "real/file=" + content, "relative->real/file"}));
    }
}

TEST_F(StagedFileTest, RefusesWhatMustNotBeReplaced)
{
    Write({"read-only=kept", "folder/", "fifo|"});
    SetMode(Path("read-only"), 0444);
    const TreeLines before = Tree();
    const std::pair<std::string, ErrorKind> cases[] = {
        {"read-only", ErrorKind::AccessDenied},  // for root too
        {"folder", ErrorKind::IsAFolder},
        {"folder/", ErrorKind::IsAFolder},
        {"folder/..", ErrorKind::IsAFolder},
        {"fifo", ErrorKind::NotSupported},
        {"missing/a", ErrorKind::Missing},
        {"fifo/a", ErrorKind::NotAFolder},
        {std::string(256, 'n'), ErrorKind::NameTooLong}};
    for (const auto& [name, kind] : cases) {
        EXPECT_EQ(KindOf(ReplaceFile(Path(name), "x")), kind) << name;
        EXPECT_FALSE(CanReplace(Path(name)).Ok()) << name;
    }
    // A path must not be cut at a NUL byte.
    const std::string cut = Path("folder/new") + std::string("\0b", 2);
    EXPECT_FALSE(ReplaceFile(cut, "x").Ok());
    EXPECT_FALSE(ReadWholeFile(Path("read-only") + std::string("\0b", 2), 100).Ok());
    EXPECT_FALSE(ReplaceFile("", "x").Ok());
    EXPECT_EQ(Tree(), before);
}

TEST_F(StagedFileTest, ReadsRegularFilesUpToALimitAndNothingElse)
{
    Write({"ten=0123456789", "empty=", "fifo|"});
    EXPECT_EQ(*ReadWholeFile(Path("ten"), 10), "0123456789");
    EXPECT_EQ(*ReadWholeFile(Path("empty"), 0), "");
    EXPECT_FALSE(ReadWholeFile("/proc/self/status", 1 << 20)->empty());  // st_size is 0
    const std::pair<std::string, ErrorKind> cases[] = {
        {Path("ten"), ErrorKind::DiskFull},      {"/proc/self/status", ErrorKind::DiskFull},
        {Path("none"), ErrorKind::Missing},      {Path(), ErrorKind::IsAFolder},
        {Path("fifo"), ErrorKind::NotSupported}, {"/dev/zero", ErrorKind::NotSupported}};
    for (const auto& [path, kind] : cases) {
        EXPECT_EQ(KindOf(ReadWholeFile(path, 9)), kind) << path;
    }
}

}  // namespace
}  // namespace quorbit
