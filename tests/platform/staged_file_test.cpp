// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/staged_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "platform/leftover_name.h"
#include "support/scoped_file_size_limit.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

namespace fs = std::filesystem;

class StagedFileTest : public testing::Test {
protected:
    [[nodiscard]] std::string PathOf(const std::string& name) const
    {
        return m_folder.Path() + "/" + name;
    }
    TempFolder m_folder;
};

TEST_F(StagedFileTest, CreatesAFileAndReplacesItWithItsPermissionsKept)
{
    const mode_t mask = ::umask(027);
    const Status created = ReplaceFile(PathOf("a"), "one");
    ::umask(mask);
    ASSERT_TRUE(created.Ok());
    EXPECT_EQ(ContentOf(PathOf("a")), "one");
    EXPECT_EQ(ModeOf(PathOf("a")), 0640U);

    ASSERT_EQ(::chmod(PathOf("a").c_str(), 0755), 0);
    const bool hasXattr = ::setxattr(PathOf("a").c_str(), "user.note", "n", 1, 0) == 0;
    ASSERT_TRUE(ReplaceFile(PathOf("a"), std::string(300'000, 'x')).Ok());
    EXPECT_EQ(ContentOf(PathOf("a")), std::string(300'000, 'x'));
    EXPECT_EQ(ModeOf(PathOf("a")), 0755U);
    char value = 0;
    EXPECT_EQ(::getxattr(PathOf("a").c_str(), "user.note", &value, 1), hasXattr ? 1 : -1);
    EXPECT_EQ(ReadTree(m_folder.Path()).size(), 1U);
}

TEST_F(StagedFileTest, AFullDiskLeavesTheOldFileAndNothingElse)
{
    ASSERT_TRUE(ReplaceFile(PathOf("old"), "old content").Ok());
    for (const char* name : {"old", "new"}) {
        Status replaced;
        {
            const ScopedFileSizeLimit full(5);
            replaced = ReplaceFile(PathOf(name), "new content");
        }
        ASSERT_FALSE(replaced.Ok());
        EXPECT_EQ(replaced.GetError().Kind(), ErrorKind::DiskFull);
    }
    EXPECT_EQ(ReadTree(m_folder.Path()), TreeLines{"old=old content"});
}

TEST_F(StagedFileTest, FollowsLinksAlsoToAFileYetToBeMade)
{
    fs::create_directory(PathOf("real"));
    fs::create_symlink("real/file", PathOf("relative"));
    fs::create_symlink(PathOf("relative"), PathOf("absolute"));
    fs::create_symlink("loop", PathOf("loop"));
    for (const char* content : {"first", "second"}) {
        ASSERT_TRUE(ReplaceFile(PathOf("absolute"), content).Ok());
        EXPECT_EQ(ContentOf(PathOf("real/file")), content);
        EXPECT_TRUE(fs::is_symlink(PathOf("absolute")));
        EXPECT_TRUE(fs::is_symlink(PathOf("relative")));
    }
    EXPECT_FALSE(ReplaceFile(PathOf("loop"), "x").Ok());
    EXPECT_TRUE(fs::is_symlink(PathOf("loop")));
}

TEST_F(StagedFileTest, RefusesWhatMustNotBeReplaced)
{
    ASSERT_TRUE(ReplaceFile(PathOf("read-only"), "kept").Ok());
    ASSERT_EQ(::chmod(PathOf("read-only").c_str(), 0444), 0);
    fs::create_directory(PathOf("folder"));
    ASSERT_EQ(::mkfifo(PathOf("fifo").c_str(), 0666), 0);
    const TreeLines before = ReadTree(m_folder.Path());

    struct Case {
        std::string name;
        ErrorKind kind;
    };
    const Case cases[] = {
        {"read-only", ErrorKind::AccessDenied},  // for root too
        {"folder", ErrorKind::IsAFolder},
        {"folder/", ErrorKind::IsAFolder},
        {"folder/..", ErrorKind::IsAFolder},
        {"fifo", ErrorKind::NotSupported},
        {"missing/a", ErrorKind::Missing},
        {"fifo/a", ErrorKind::NotAFolder},
        {std::string(256, 'n'), ErrorKind::NameTooLong},
    };
    for (const Case& c : cases) {
        const Status replaced = ReplaceFile(PathOf(c.name), "x");
        ASSERT_FALSE(replaced.Ok()) << c.name;
        EXPECT_EQ(replaced.GetError().Kind(), c.kind) << c.name;
        EXPECT_FALSE(CanReplace(PathOf(c.name)).Ok()) << c.name;
    }
    EXPECT_FALSE(ReplaceFile("", "x").Ok());
    EXPECT_EQ(ReadTree(m_folder.Path()), before);
}

TEST_F(StagedFileTest, NeverCutsAPathAtANulByte)
{
    ASSERT_TRUE(ReplaceFile(PathOf("a"), "kept").Ok());
    const std::string cut = PathOf("a") + std::string("\0b", 2);
    EXPECT_FALSE(ReplaceFile(cut, "x").Ok());
    EXPECT_FALSE(ReadWholeFile(cut, 100).Ok());
    EXPECT_EQ(ReadTree(m_folder.Path()), TreeLines{"a=kept"});
}

TEST_F(StagedFileTest, AWriteThroughALongNameHasRoomForItsStage)
{
    const std::string name(255, 'n');
    ASSERT_TRUE(ReplaceFile(PathOf(name), "one").Ok());
    ASSERT_TRUE(ReplaceFile(PathOf(name), "two").Ok());
    EXPECT_EQ(ContentOf(PathOf(name)), "two");
}

TEST_F(StagedFileTest, SweepsWhatAKilledWriterLeft)
{
    WriteContent(PathOf(MakeLeftoverName()), "half a fi");
    ASSERT_TRUE(ReplaceFile(PathOf("a"), "x").Ok());
    EXPECT_EQ(ReadTree(m_folder.Path()), TreeLines{"a=x"});
}

TEST_F(StagedFileTest, ReadsRegularFilesUpToALimitAndNothingElse)
{
    ASSERT_TRUE(ReplaceFile(PathOf("ten"), "0123456789").Ok());
    ASSERT_TRUE(ReplaceFile(PathOf("empty"), "").Ok());
    ASSERT_EQ(::mkfifo(PathOf("fifo").c_str(), 0666), 0);
    EXPECT_EQ(*ReadWholeFile(PathOf("ten"), 10), "0123456789");
    EXPECT_EQ(*ReadWholeFile(PathOf("empty"), 0), "");
    EXPECT_FALSE(ReadWholeFile("/proc/self/status", 1 << 20)->empty());  // tells no size

    struct Case {
        std::string path;
        ErrorKind kind;
    };
    const Case cases[] = {
        {PathOf("ten"), ErrorKind::DiskFull},      {"/proc/self/status", ErrorKind::DiskFull},
        {PathOf("none"), ErrorKind::Missing},      {m_folder.Path(), ErrorKind::IsAFolder},
        {PathOf("fifo"), ErrorKind::NotSupported}, {"/dev/zero", ErrorKind::NotSupported},
    };
    for (const Case& c : cases) {
        const auto read = ReadWholeFile(c.path, 9);
        ASSERT_FALSE(read.Ok()) << c.path;
        EXPECT_EQ(read.GetError().Kind(), c.kind) << c.path;
    }
}

}  // namespace
}  // namespace quorbit
