// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a copy must not destroy: the old file where the new one fails, read-only files, the source
// itself, and whatever a link in the way points to.

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <thread>

#include "disk_test.h"
#include "platform/leftover_name.h"
#include "support/scoped_file_size_limit.h"

namespace quorbit {
namespace {

// With and without files that have no name until they are complete.
class PosixFileReplaceTest : public DiskTest, public testing::WithParamInterface<bool> {
protected:
    void SetUp() override { Prepare(*Open(Dest())); }
    static void Prepare(const Folder& folder)
    {
        static_cast<const PosixFolder&>(folder).Volume().takesAnonymousFiles = GetParam();
    }
};

INSTANTIATE_TEST_SUITE_P(Ways, PosixFileReplaceTest, testing::Bool());

TEST_P(PosixFileReplaceTest, KeepsTheOldFileWhenTheDiskIsFull)
{
    constexpr std::size_t kLimit = 100'000;
    WriteTree(Source(), {"small=" + Pattern(kLimit + 1), "large=" + Pattern(5'000'000), "holes="});
    ASSERT_EQ(::truncate(Source("holes").c_str(), 5'000'000), 0);
    WriteTree(Dest(), {"small=old", "large=old", "holes=old"});
    const TreeLines before = ReadTreeWithDetails(Dest());
    std::vector<ErrorKind> kinds;
    {
        const ScopedFileSizeLimit limit(kLimit);
        for (const bool expectMissing : {true, false}) {
            CopyOptions options;
            options.expectMissing = expectMissing;
            for (const char* name : {"small", "large", "holes"}) {
                const Status copied = Copy(name, options);
                kinds.push_back(copied ? ErrorKind::Other : copied.GetError().Kind());
                const Status copiedNew = CopyAs(name, std::string(name) + ".new", options);
                kinds.push_back(copiedNew ? ErrorKind::Other : copiedNew.GetError().Kind());
            }
        }
    }
    EXPECT_EQ(kinds, std::vector<ErrorKind>(12, ErrorKind::DiskFull));
    EXPECT_EQ(ReadTreeWithDetails(Dest()), before);
}

TEST_P(PosixFileReplaceTest, KeepsTheOldFileWhenTheSourceCannotBeRead)
{
    // A regular file whose first byte cannot be read.
    WriteTree(Dest(), {"mem=old"});
    const auto from = Open("/proc/self");
    const auto into = Open(Dest());
    EXPECT_EQ(CopyBetween(*from, *into, "mem", "mem", {}).GetError().Text(), "Input/output error");
    EXPECT_FALSE(CopyBetween(*from, *into, "mem", "new", {}).Ok());
    EXPECT_EQ(ReadTree(Dest()), TreeLines{"mem=old"});
}

TEST_P(PosixFileReplaceTest, RefusesAReadOnlyFileAlsoForTheSuperuser)
{
    WriteTree(Source(), {"a=new"});
    WriteTree(Dest(), {"a=old"});
    ASSERT_EQ(::chmod(Dest("a").c_str(), 0444), 0);
    CopyOptions options;
    for (const bool expectMissing : {true, false}) {
        options.expectMissing = expectMissing;
        const Status copied = Copy("a", options);
        EXPECT_EQ(KindOf(copied), ErrorKind::AccessDenied);
        EXPECT_EQ(copied.GetError().Text(), "Permission denied");
        EXPECT_EQ(ReadTree(Dest()), TreeLines{"a=old"});
    }
    options.replaceReadOnly = true;
    EXPECT_TRUE(Copy("a", options).Ok());
    EXPECT_EQ(ReadTree(Dest()), TreeLines{"a=new"});
}

TEST_P(PosixFileReplaceTest, RefusesAFileThatOnlyItsStoredAttributesMakeReadOnly)
{
    WriteTree(Source(), {"a=new"});
    WriteTree(Dest(), {"a=old"});
    if (::setxattr(Dest("a").c_str(), "user.DOSATTRIB", "0x21", 5, 0) != 0) {
        GTEST_SKIP() << "no extended attributes of users in " << Path();
    }
    EXPECT_EQ(KindOf(Copy("a")), ErrorKind::AccessDenied);
    EXPECT_TRUE(m_files.SetAttributes(*Open(Dest()), "a", kAttributeArchive).Ok());
    EXPECT_TRUE(Copy("a").Ok());
    EXPECT_EQ(ReadTree(Dest()), TreeLines{"a=new"});
}

TEST_P(PosixFileReplaceTest, NeverCopiesAFileOntoItself)
{
    WriteTree(Path(), {"source/a=x", "source/link->a", "source/pipe|", "alias->source"});
    ASSERT_EQ(::link(Source("a").c_str(), Source("b").c_str()), 0);
    const TreeLines before = ReadTreeWithDetails(Path());
    const auto from = Open(Source());
    const auto into = Open(Path("alias"));
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"a", "a"}, {"a", "b"}, {"b", "a"}, {"link", "link"}, {"pipe", "pipe"}};
    for (const bool expectMissing : {true, false}) {
        CopyOptions options;
        options.expectMissing = expectMissing;
        for (const auto& [name, newName] : cases) {
            const Status copied = CopyBetween(*from, *into, name, newName, options);
            EXPECT_EQ(KindOf(copied), ErrorKind::SameFile) << name;
            EXPECT_EQ(copied.GetError().Text(), "Source and destination are the same file");
        }
    }
    EXPECT_EQ(ReadTreeWithDetails(Path()), before);
}

TEST_P(PosixFileReplaceTest, NeverReplacesAFolder)
{
    WriteTree(Path(), {"source/a=x", "source/link->a", "dest/a/inner=x", "dest/link/"});
    for (const bool expectMissing : {true, false}) {
        CopyOptions options;
        options.expectMissing = expectMissing;
        EXPECT_EQ(KindOf(Copy("a", options)), ErrorKind::IsAFolder);
        EXPECT_EQ(KindOf(Copy("link", options)), ErrorKind::IsAFolder);
    }
    EXPECT_EQ(ReadTree(Dest()), (TreeLines{"a/", "a/inner=x", "link/"}));
}

TEST_P(PosixFileReplaceTest, ReplacesAFileWhoseNameIsAsLongAsCanBe)
{
    const std::string name(255, 'n');
    WriteTree(Path(), {"source/" + name + "=new", "dest/" + name + "=old"});
    EXPECT_TRUE(Copy(name).Ok());
    EXPECT_EQ(ReadTree(Dest()), TreeLines{name + "=new"});
}

TEST_P(PosixFileReplaceTest, ReplacesTheNameAndNotTheFileThatOtherNamesShare)
{
    WriteTree(Path(), {"source/a=new", "dest/a=old"});
    ASSERT_EQ(::link(Dest("a").c_str(), Dest("a1").c_str()), 0);
    EXPECT_TRUE(Copy("a").Ok());
    EXPECT_EQ(ReadTree(Dest()), (TreeLines{"a1=old", "a=new"}));
}

// Runs something once, in the middle of a copy.
class Meanwhile final : public CopyProgress {
public:
    explicit Meanwhile(std::function<void()> action) : m_action(std::move(action)) {}
    void OnBytesCopied(std::uint64_t /*bytes*/) override
    {
        if (const auto action = std::exchange(m_action, {})) {
            action();
        }
    }

private:
    std::function<void()> m_action;
};

TEST_P(PosixFileReplaceTest, ASweepOfAnotherRunLeavesACopyUnderWorkAlone)
{
    WriteTree(Path(), {"source/a=new", "dest/a=old"});
    PosixFileSystem other;
    Meanwhile sweep([&] { other.SweepLeftovers(**other.OpenFolder(Dest())); });
    CopyOptions options;
    options.progress = &sweep;
    EXPECT_TRUE(Copy("a", options).Ok());
    EXPECT_EQ(ReadTree(Dest()), TreeLines{"a=new"});
}

TEST_P(PosixFileReplaceTest, AFileThatComesBetweenIsTreatedLikeOneThatWasThere)
{
    WriteTree(Source(), {"a=new"});
    Meanwhile appear([&] {
        WriteTree(Dest(), {"a=old"});
        ASSERT_EQ(::chmod(Dest("a").c_str(), 0444), 0);
    });
    CopyOptions options;
    options.expectMissing = true;
    options.progress = &appear;
    EXPECT_EQ(KindOf(Copy("a", options)), ErrorKind::AccessDenied);
    EXPECT_EQ(ReadTree(Dest()), TreeLines{"a=old"});
}

TEST_P(PosixFileReplaceTest, AKillLeavesTheOldFileOrTheNewOne)
{
    const std::string content = Pattern(300'000);
    WriteTree(Source(), {"a=" + content});
    for (int round = 0; round < 20; ++round) {
        WriteTree(Dest(), {"a=old"});
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            while (Copy("a").Ok() && CopyAs("a", "b", {}).Ok()) {
            }
            ::_exit(1);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(500 * round));
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status));
        m_files.SweepLeftovers(*Open(Dest()));
        const std::string now = ContentOf(Dest("a"));
        EXPECT_TRUE(now == "old" || now == content) << now.size();
        const std::string created = ContentOf(Dest("b"));
        EXPECT_TRUE(created == "(none)" || created == content) << created.size();
        EXPECT_LE(ReadTree(Dest()).size(), 2U);
        (void)::unlink(Dest("b").c_str());
    }
}

}  // namespace
}  // namespace quorbit
