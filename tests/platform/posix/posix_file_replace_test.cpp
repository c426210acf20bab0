// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests what a copy must not destroy: the old file if the copy fails, read-only files, the source
// itself, and the targets of links at the destination.

#include <unistd.h>

#include <filesystem>

#include "platform/posix/disk_test.h"
#include "support/full_disk.h"

namespace quorbit {
namespace {

struct Situation {
    bool takesAnonymousFiles;  // O_TMPFILE: no name until they are complete
    bool expectMissing;
};

class PosixFileReplaceTest : public DiskTest, public testing::WithParamInterface<Situation> {
protected:
    void SetUp() override
    {
        VolumeOf(*Open(Dest())).takesAnonymousFiles = GetParam().takesAnonymousFiles;
        m_options.expectMissing = GetParam().expectMissing;
    }
    CopyOptions m_options;
};

INSTANTIATE_TEST_SUITE_P(Ways, PosixFileReplaceTest,
                         testing::Values(Situation{true, true}, Situation{true, false},
                                         Situation{false, true}, Situation{false, false}));

TEST_P(PosixFileReplaceTest, KeepsTheOldFileWhenTheDiskIsFull)
{
    constexpr std::size_t kLimit = 100'000;
    Write({"source/small=" + Pattern(kLimit + 1), "source/large=" + Pattern(5'000'000),
           "source/holes=", "dest/small=old", "dest/large=old", "dest/holes=old"});
    std::filesystem::resize_file(Source("holes"), 5'000'000);
    const TreeLines before = ReadTreeWithDetails(Dest());
    for (const char* name : {"small", "large", "holes"}) {
        const auto over = OnFullDisk(kLimit, [&] { return Copy(name, m_options); });
        const auto anew = OnFullDisk(kLimit, [&] { return CopyAs(name, "new", m_options); });
        EXPECT_EQ(KindOf(over), ErrorKind::DiskFull) << name;
        EXPECT_EQ(KindOf(anew), ErrorKind::DiskFull) << name;
        EXPECT_EQ(ReadTreeWithDetails(Dest()), before);
    }
}

TEST_P(PosixFileReplaceTest, KeepsTheOldFileWhenTheSourceCannotBeRead)
{
    // /proc/self/mem is a regular file, but reading at offset 0 fails with EIO.
    Write({"dest/mem=old"});
    const auto from = Open("/proc/self");
    const auto into = Open(Dest());
    EXPECT_EQ(CopyBetween(*from, *into, "mem", "mem", m_options).GetError().Text(),
              "Input/output error");
    EXPECT_FALSE(CopyBetween(*from, *into, "mem", "new", m_options).Ok());
    EXPECT_EQ(ReadTree(Dest()), TreeLines{"mem=old"});
}

TEST_P(PosixFileReplaceTest, ReplacesNothingThatMustBeMissing)
{
    Write({"source/file=new", "source/link->x", "source/pipe|"});
    Meanwhile progress([this] { Write({"dest/file=appeared"}); });
    m_options.mustBeMissing = true;
    m_options.progress = &progress;
    EXPECT_EQ(KindOf(Copy("file", m_options)), ErrorKind::AlreadyExists);
    Write({"dest/link=old", "dest/pipe=old"});
    for (const char* name : {"file", "link", "pipe"}) {
        EXPECT_EQ(KindOf(Copy(name, m_options)), ErrorKind::AlreadyExists) << name;
        EXPECT_TRUE(CopyAs(name, name + std::string("2"), m_options).Ok()) << name;
    }
    EXPECT_EQ(ReadTree(Dest()), (TreeLines{"file2=new", "file=appeared", "link2->x", "link=old",
                                           "pipe2|", "pipe=old"}));
}

TEST_P(PosixFileReplaceTest, RefusesAReadOnlyFileAlsoForTheSuperuser)
{
    Write({"source/a=new", "dest/a=old"});
    SetMode(Dest("a"), 0444);
    EXPECT_EQ(KindOf(Copy("a", m_options)), ErrorKind::AccessDenied);
    EXPECT_EQ(ReadTree(Dest()), TreeLines{"a=old"});
    m_options.replaceReadOnly = true;
    EXPECT_TRUE(Copy("a", m_options).Ok());
    EXPECT_EQ(ReadTree(Dest()), TreeLines{"a=new"});
}

TEST_P(PosixFileReplaceTest, RefusesAFileThatOnlyItsStoredAttributesMakeReadOnly)
{
    Write({"source/a=new", "dest/a=old"});
    if (!SetAttribute(Dest("a"), "user.DOSATTRIB", "0x21")) {
        GTEST_SKIP() << "no extended attributes of users in " << Path();
    }
    EXPECT_EQ(KindOf(Copy("a", m_options)), ErrorKind::AccessDenied);
    EXPECT_TRUE(m_files.SetAttributes(*Open(Dest()), "a", kAttributeArchive).Ok());
    EXPECT_TRUE(Copy("a", m_options).Ok());
    EXPECT_EQ(ReadTree(Dest()), TreeLines{"a=new"});
}

TEST_P(PosixFileReplaceTest, NeverCopiesAFileOntoItself)
{
    Write({"source/a=x", "source/link->a", "source/pipe|", "alias->source"});
    std::filesystem::create_hard_link(Source("a"), Source("b"));
    const TreeLines before = ReadTreeWithDetails(Path());
    const auto from = Open(Source());
    const auto into = Open(Path("alias"));
    const std::pair<const char*, const char*> cases[] = {
        {"a", "a"}, {"a", "b"}, {"b", "a"}, {"link", "link"}, {"pipe", "pipe"}};
    for (const auto& [name, newName] : cases) {
        EXPECT_EQ(KindOf(CopyBetween(*from, *into, name, newName, m_options)), ErrorKind::SameFile)
            << name;
    }
    EXPECT_EQ(ReadTreeWithDetails(Path()), before);
}

TEST_P(PosixFileReplaceTest, NeverReplacesAFolder)
{
    Write({"source/a=x", "source/link->a", "dest/a/inner=x", "dest/link/"});
    EXPECT_EQ(KindOf(Copy("a", m_options)), ErrorKind::IsAFolder);
    EXPECT_EQ(KindOf(Copy("link", m_options)), ErrorKind::IsAFolder);
    EXPECT_EQ(ReadTree(Dest()), (TreeLines{"a/", "a/inner=x", "link/"}));
}

TEST_P(PosixFileReplaceTest, ReplacesTheNameAndNotTheFileThatOtherNamesShare)
{
    const std::string name(255, 'n');  // NAME_MAX bytes
    Write({"source/" + name + "=new", "dest/" + name + "=old"});
    std::filesystem::create_hard_link(Dest(name), Dest("a1"));
    EXPECT_TRUE(Copy(name, m_options).Ok());
    EXPECT_EQ(ReadTree(Dest()), (TreeLines{"a1=old", name + "=new"}));
}

TEST_P(PosixFileReplaceTest, ASweepOfAnotherRunLeavesACopyUnderWorkAlone)
{
    Write({"source/a=new", "dest/a=old"});
    PosixFileSystem other;
    Meanwhile sweep([&] { other.SweepLeftovers(**other.OpenFolder(Dest())); });
    m_options.progress = &sweep;
    EXPECT_TRUE(Copy("a", m_options).Ok());
    EXPECT_EQ(ReadTree(Dest()), TreeLines{"a=new"});
}

TEST_P(PosixFileReplaceTest, AFileThatComesBetweenIsTreatedLikeOneThatWasThere)
{
    Write({"source/a=new"});
    Meanwhile appear([&] {
        Write({"dest/a=old"});
        SetMode(Dest("a"), 0444);
    });
    m_options.progress = &appear;
    EXPECT_EQ(KindOf(Copy("a", m_options)), ErrorKind::AccessDenied);
    EXPECT_EQ(ReadTree(Dest()), TreeLines{"a=old"});
}

TEST_P(PosixFileReplaceTest, AKillLeavesTheOldFileOrTheNewOne)
{
    const std::string content = Pattern(300'000);
    Write({"source/a=" + content});
    for (int round = 0; round < 20; ++round) {
        Write({"dest/a=old"});
        KillWhileItWorks(500 * round, [&] {
            return Copy("a", m_options).Ok() && CopyAs("a", "b", m_options).Ok();
        });
        m_files.SweepLeftovers(*Open(Dest()));
        const std::string now = ContentOf(Dest("a"));
        EXPECT_TRUE(now == "old" || now == content) << now.size();
        const std::string created = ContentOf(Dest("b"));
        EXPECT_TRUE(created == "(none)" || created == content) << created.size();
        EXPECT_LE(ReadTree(Dest()).size(), 2U);
        (void)std::filesystem::remove(Dest("b"));
    }
}

}  // namespace
}  // namespace quorbit
