// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests the content and metadata of copies. posix_file_replace_test.cpp tests that nothing is lost.

#include "platform/posix/posix_file_copy.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <thread>

#include "platform/posix/disk_test.h"
#include "platform/posix/file_metadata.h"
#include "support/wait.h"

namespace quorbit {
namespace {

// The ways to transfer content and to put the file in place.
enum class Way { Usual, Streamed, Named, NamedAndSynced, LinkedThroughProc };

class PosixFileCopyTest : public DiskTest, public testing::WithParamInterface<Way> {
protected:
    void SetUp() override
    {
        const auto folder = Open(Dest());
        PosixVolume& volume = VolumeOf(*folder);
        volume.takesAnonymousFiles = GetParam() != Way::Named && GetParam() != Way::NamedAndSynced;
        volume.closeTells = GetParam() == Way::Named;
        volume.linksByDescriptor = GetParam() != Way::LinkedThroughProc;
        if (GetParam() == Way::Streamed) {
            TransferFacts& facts = volume.TransfersFrom(volume.device);
            facts.cloneRefused = true;
            facts.rangeRefused = true;
        }
    }
    void ExpectCopied(CopyOptions options = {})
    {
        options.durable = GetParam() == Way::NamedAndSynced;
        for (const auto& item : std::filesystem::directory_iterator(Source())) {
            const std::string name = item.path().filename();
            const Status copied = Copy(name, options);
            EXPECT_TRUE(copied.Ok()) << name << ": " << copied.GetError().Text();
        }
        EXPECT_EQ(ReadTreeWithDetails(Dest()), ReadTreeWithDetails(Source()));
    }
};

INSTANTIATE_TEST_SUITE_P(Ways, PosixFileCopyTest,
                         testing::Values(Way::Usual, Way::Streamed, Way::Named, Way::NamedAndSynced,
                                         Way::LinkedThroughProc));

TEST_P(PosixFileCopyTest, KeepsContentTimesAndPermissionsOfNewAndReplacedFiles)
{
    const std::tuple<std::size_t, mode_t, std::int64_t, std::uint32_t> cases[] = {
        {0, 0644, 0, 0},           {1, 0600, 1700000000, 123456789},
        {65536, 0755, -1, 1},      {65535, 0444, 1700000001, 999999999},
        {262145, 0640, 1, 0},      {262144, 04755, 4102444800, 500},
        {5000000, 0666, 170000, 1}};
    for (const auto& [size, mode, modified, nanoseconds] : cases) {
        const std::string path = Source("f" + std::to_string(size));
        WriteContent(path, Pattern(size));
        SetMode(path, mode);
        SetModified(path, modified, nanoseconds);
    }
    ExpectCopied({.expectMissing = true});
    ExpectCopied({.replaceReadOnly = true, .expectMissing = true});
    ExpectCopied({.replaceReadOnly = true});
}

TEST_P(PosixFileCopyTest, CopiesLinksAndPipesAsWhatTheyAreAlsoOverEachOther)
{
    Write({"victim=untouched", "source/dangling->nowhere", "source/up->../../x", "source/a=content",
           "source/long->" + std::string(1000, 't'), "source/pipe|"});
    SetModified(Source("up"), 1234567890, 987654321);
    SetModified(Source("pipe"), 1234567890, 1);
    SetMode(Source("pipe"), 0620);
    ExpectCopied();
    for (const char* name : {"dangling", "up", "a", "pipe", "long"}) {
        std::filesystem::remove(Dest(name));
        std::filesystem::create_symlink("../victim", Dest(name));
    }
    ExpectCopied();
    std::filesystem::remove(Dest("a"));
    Write({"dest/a|"});
    ExpectCopied();
    EXPECT_EQ(ContentOf(Path("victim")), "untouched");
}

TEST_P(PosixFileCopyTest, KeepsHolesAsHoles)
{
    constexpr std::uint64_t kSizes[] = {64 << 20, 32768};
    Write({"source/0=", "source/1="});
    const UniqueFd fd(::open(Source("0").c_str(), O_WRONLY | O_CLOEXEC));
    for (const off_t at : {3 << 20, 20 << 20}) {
        EXPECT_EQ(::pwrite(fd.Get(), Pattern(200000).data(), 200000, at), 200000);
    }
    for (int i = 0; i < 2; ++i) {
        std::filesystem::resize_file(Source(std::to_string(i)), kSizes[i]);
    }
    Meanwhile progress;
    ExpectCopied({.progress = &progress});
    EXPECT_EQ(progress.Total(), kSizes[0] + kSizes[1]);
    for (const char* name : {"0", "1"}) {
        struct stat from {};
        struct stat to {};
        ASSERT_EQ(::stat(Source(name).c_str(), &from) + ::stat(Dest(name).c_str(), &to), 0);
        EXPECT_LE(to.st_blocks, from.st_blocks + 64) << name;
    }
}

TEST_P(PosixFileCopyTest, CopiesASourceThatGrowsOrShrinksToItsEnd)
{
    // A clone is atomic, so the source could not change during the copy.
    const auto folder = Open(Dest());
    VolumeOf(*folder).TransfersFrom(VolumeOf(*folder).device).cloneRefused = true;
    const std::string before = Pattern(6'000'000);
    const std::pair<std::size_t, std::string> changes[] = {
        {before.size(), std::string(700'000, 'g')}, {5'000'000, ""}, {0, ""}};
    for (const auto& [kept, added] : changes) {
        WriteContent(Source("log"), before);
        SetModified(Source("log"), 1000);
        Meanwhile progress([&, this] {
            std::filesystem::resize_file(Source("log"), kept);
            std::ofstream(Source("log"), std::ios::app) << added;
        });
        ASSERT_TRUE(Copy("log", {.progress = &progress}).Ok());
        // The copy has the content before the change and no made-up bytes after the end.
        const std::string copy = ContentOf(Dest("log"));
        const bool right =
            kept == 0 ? before.starts_with(copy) : copy == before.substr(0, kept) + added;
        EXPECT_TRUE(right) << kept << ": " << copy.size();
        EXPECT_TRUE(ReadTreeWithDetails(Dest())[0].ends_with(" 1000.000000000"));
    }
}

TEST_P(PosixFileCopyTest, TakesAnItemForWhatItHasBecome)
{
    Write({"source/a=", "source/b->a", "source/c|", "source/d/"});
    const auto folder = Open(Source());
    const auto dest = Open(Dest());
    for (const std::string name : {"a", "b", "c", "d"}) {
        for (const ItemKind listedAs :
             {ItemKind::File, ItemKind::Link, ItemKind::Special, ItemKind::Unknown}) {
            FindData item;
            item.name = name;
            item.kind = listedAs;
            const auto file = m_files.OpenSource(*folder, item, ReadAhead::Start);
            if (name == "d") {
                EXPECT_EQ(KindOf(file), ErrorKind::IsAFolder);
            } else {
                EXPECT_TRUE(file && m_files.CopyFile(**file, *dest, name, {}).Ok()) << name;
            }
        }
    }
    EXPECT_EQ(ReadTree(Dest()), (TreeLines{"a=", "b->a", "c|"}));
}

TEST_F(DiskTest, ACopyWaitsForAFileServerToLetGoOfTheFile)
{
    Write({"source/a=x"});
    const UniqueFd leased(::open(Source("a").c_str(), O_RDWR | O_CLOEXEC));
    // The kernel asks for the lease with SIGIO, which would kill the test.
    const auto oldHandler = std::signal(SIGIO, SIG_IGN);
    if (::fcntl(leased.Get(), F_SETLEASE, F_WRLCK) != 0) {
        GTEST_SKIP() << "no leases in " << Path();
    }
    {
        const std::jthread server([&] {
            // F_GETLEASE changes once the file is opened again; see fcntl(2).
            EXPECT_TRUE(Eventually([&] { return ::fcntl(leased.Get(), F_GETLEASE) != F_WRLCK; }));
            EXPECT_EQ(::fcntl(leased.Get(), F_SETLEASE, F_UNLCK), 0);
        });
        EXPECT_TRUE(Copy("a").Ok());
    }
    (void)std::signal(SIGIO, oldHandler);
    EXPECT_EQ(ReadTree(Dest()), TreeLines{"a=x"});
}

TEST_P(PosixFileCopyTest, KeepsExtendedAttributesAlsoOfReadOnlyFiles)
{
    Write({"source/a=x"});
    const std::string large(3000, 'v');
    if (!SetAttribute(Source("a"), "user.large", large)) {
        GTEST_SKIP() << "no extended attributes of users in " << Path();
    }
    ASSERT_TRUE(SetAttribute(Source("a"), "user.empty", ""));
    SetMode(Source("a"), 0444);
    ExpectCopied({.replaceReadOnly = true});
    EXPECT_EQ(AttributeOf(Dest("a"), "user.large"), large);
    EXPECT_EQ(AttributeOf(Dest("a"), "user.empty"), "");
}

TEST_P(PosixFileCopyTest, AnAttributeThatDoesNotFitIsNamedAndTheContentIsCopied)
{
    const TempFolder other("/dev/shm");
    const std::string large(20'000, 'v');  // more than the block of ext4 that holds attributes
    WriteTree(other.Path(), {"a=x"});
    Write({"dest/probe=x"});
    if (!SetAttribute(other.Path() + "/a", "user.large", large) ||
        !SetAttribute(other.Path() + "/a", "user.small", "v") ||
        SetAttribute(Dest("probe"), "user.large", large)) {
        GTEST_SKIP() << "the attribute fits in " << Path() << " or does not fit in /dev/shm";
    }
    EXPECT_TRUE(CopyBetween(*Open(other.Path()), *Open(Dest()), "a", "a").Ok());
    EXPECT_EQ(ContentOf(Dest("a")), "x");
    EXPECT_EQ(AttributeOf(Dest("a"), "user.small"), "v");
    const std::vector<std::string> notKept = m_files.TakeNotKept();
    ASSERT_EQ(notKept.size(), 1U);
    EXPECT_TRUE(notKept[0].starts_with("user.large: ")) << notKept[0];
}

// ACL in the format of <linux/posix_acl_xattr.h>, version 2: owner rw, user 1 r, group r, mask rw,
// others none.
constexpr std::string_view kAcl{
    "\2\0\0\0\1\0\6\0\xff\xff\xff\xff\2\0\4\0\1\0\0\0\4\0\4\0\xff\xff\xff\xff"
    "\20\0\6\0\xff\xff\xff\xff\40\0\0\0\xff\xff\xff\xff",
    44};
constexpr const char* kAccess = "system.posix_acl_access";
constexpr const char* kDefault = "system.posix_acl_default";

TEST_P(PosixFileCopyTest, KeepsAnAccessControlListAndInheritsNone)
{
    Write({"source/listed=x", "source/plain=x", "source/sub/"});
    if (!SetAttribute(Source("listed"), kAccess, kAcl) || !SetAttribute(Dest(), kDefault, kAcl)) {
        GTEST_SKIP() << "no access control lists in " << Path();
    }
    EXPECT_TRUE(Copy("listed").Ok());
    EXPECT_TRUE(Copy("plain").Ok());
    EXPECT_TRUE(m_files.CreateFolder(*Open(Dest()), "sub", Open(Source("sub")).get()).Ok());
    EXPECT_EQ(ReadTreeWithDetails(Dest()), ReadTreeWithDetails(Source()));
    EXPECT_EQ(AttributeOf(Dest("listed"), kAccess), kAcl);
    EXPECT_EQ(AttributeOf(Dest("plain"), kAccess), "(none)");
    EXPECT_EQ(AttributeOf(Dest("sub"), kAccess), "(none)");
    EXPECT_EQ(AttributeOf(Dest("sub"), kDefault), "(none)");
}

TEST_F(DiskTest, TheGroupGetsNoMoreWhereAnAccessControlListCannotBeKept)
{
    Write({"source/listed=x"});
    if (!SetAttribute(Source("listed"), kAccess, kAcl)) {
        GTEST_SKIP() << "no access control lists in " << Path();
    }
    const UniqueFd from(::open(Source("listed").c_str(), O_RDONLY | O_CLOEXEC));
    int pipe[2] = {-1, -1};  // a pipe cannot store an ACL
    ASSERT_EQ(::pipe2(pipe, O_CLOEXEC), 0);
    const UniqueFd end(pipe[0]);
    const UniqueFd to(pipe[1]);
    mode_t mode = 0664;  // the group bits are the ACL mask
    EXPECT_TRUE(CopyExtendedAttributes(from.Get(), to.Get(), {false, false, &mode}).Ok());
    EXPECT_EQ(mode, 0644U);
}

TEST_P(PosixFileCopyTest, KeepsTheOwnerWhereAllowed)
{
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only the superuser gives files away";
    }
    Write({"source/a=x", "source/link->a", "source/pipe|", "source/sub/"});
    for (const char* name : {"a", "link", "pipe", "sub"}) {
        ASSERT_EQ(::lchown(Source(name).c_str(), 1234, 5678), 0);
    }
    SetMode(Source("a"), 06755);
    EXPECT_TRUE(m_files.CreateFolder(*Open(Dest()), "sub", Open(Source("sub")).get()).Ok());
    for (const char* name : {"a", "link", "pipe", "sub"}) {
        EXPECT_TRUE(name == std::string("sub") || Copy(name).Ok());
        struct stat details {};
        ASSERT_EQ(::lstat(Dest(name).c_str(), &details), 0);
        EXPECT_EQ(details.st_uid, 1234U) << name;
        EXPECT_EQ(details.st_gid, 5678U) << name;
    }
    EXPECT_EQ(ModeOf(Dest("a")), 06755U);
}

TEST_F(DiskTest, CopiesToAnotherFileSystem)
{
    struct stat here {};
    struct stat there {};
    if (::stat(Path().c_str(), &here) != 0 || ::stat("/dev/shm", &there) != 0 ||
        here.st_dev == there.st_dev || ::access("/dev/shm", W_OK) != 0) {
        GTEST_SKIP() << "/dev/shm is not another file system";
    }
    Write({"source/small=x", "source/large=" + Pattern(5'000'000), "source/link->small",
           "source/pipe|", "source/holes="});
    std::filesystem::resize_file(Source("holes"), 10'000'000);
    const TempFolder other("/dev/shm");
    const auto into = Open(other.Path());
    const auto from = Open(Source());
    for (const char* name : {"small", "large", "link", "pipe", "holes"}) {
        EXPECT_TRUE(CopyBetween(*from, *into, name, name).Ok()) << name;
    }
    EXPECT_EQ(ReadTreeWithDetails(other.Path()), ReadTreeWithDetails(Source()));
    EXPECT_TRUE(m_files.SyncWritten().Ok());
}

}  // namespace
}  // namespace quorbit
