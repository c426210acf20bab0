// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a copy keeps. tests/platform/posix_file_replace_test.cpp has what it must not destroy.

#include "platform/posix_file_copy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>
#include <utility>
#include <vector>

#include "disk_test.h"
#include "platform/file_metadata.h"

namespace quorbit {
namespace {

// Acts between two pieces of a copy.
class PieceAction final : public CopyProgress {
public:
    explicit PieceAction(std::function<void()> atFirst = {}) : m_atFirst(std::move(atFirst)) {}
    void OnBytesCopied(std::uint64_t bytes) override
    {
        m_total += bytes;
        if (const auto action = std::exchange(m_atFirst, {})) {
            action();
        }
    }
    [[nodiscard]] std::uint64_t Total() const { return m_total; }

private:
    std::function<void()> m_atFirst;
    std::uint64_t m_total = 0;
};

// Every way in which content and names can get to the destination.
enum class Way { Usual, Streamed, Named, NamedAndSynced, LinkedThroughProc };

class PosixFileCopyTest : public DiskTest, public testing::WithParamInterface<Way> {
protected:
    void SetUp() override
    {
        const auto folder = Open(Dest());
        PosixVolume& volume = static_cast<PosixFolder&>(*folder).Volume();
        volume.takesAnonymousFiles = GetParam() != Way::Named && GetParam() != Way::NamedAndSynced;
        volume.ordersRenames = GetParam() != Way::NamedAndSynced;
        volume.closeTells = GetParam() == Way::Named;
        volume.linksByDescriptor = GetParam() != Way::LinkedThroughProc;
        if (GetParam() == Way::Streamed) {
            volume.transfersFrom[volume.device] = {true, true};
        }
    }
    void ExpectCopied(const CopyOptions& options)
    {
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
    struct Case {
        std::size_t size;
        mode_t mode;
        std::int64_t modified;
        std::uint32_t nanoseconds;
    };
    const std::vector<Case> cases = {
        {0, 0644, 0, 0},
        {1, 0600, 1700000000, 123456789},
        {65535, 0444, 1700000001, 999999999},
        {65536, 0755, -1000000000, 1},
        {262144, 04755, 4102444800, 500},
        {262145, 0640, 1, 0},
        {5000000, 0666, 1700000000, 1},
    };
    for (const Case& one : cases) {
        const std::string path = Source("f" + std::to_string(one.size));
        WriteContent(path, Pattern(one.size));
        ASSERT_EQ(::chmod(path.c_str(), one.mode), 0);
        SetModified(path, one.modified, one.nanoseconds);
    }
    CopyOptions options;
    options.expectMissing = true;
    ExpectCopied(options);
    options.replaceReadOnly = true;
    ExpectCopied(options);
    options.expectMissing = false;
    ExpectCopied(options);
}

TEST_P(PosixFileCopyTest, CopiesLinksAndPipesAsWhatTheyAre)
{
    WriteTree(Source(), {"dangling->nowhere", "up->../../x", "a=content", "pipe|"});
    ASSERT_EQ(::symlink(std::string(1000, 't').c_str(), Source("long").c_str()), 0);
    SetModified(Source("up"), 1234567890, 987654321);
    SetModified(Source("pipe"), 1234567890, 1);
    ASSERT_EQ(::chmod(Source("pipe").c_str(), 0620), 0);
    ExpectCopied({});
    // Over each other: what was there is neither followed nor opened.
    WriteTree(Path(), {"victim=untouched"});
    for (const char* name : {"dangling", "up", "a", "pipe", "long"}) {
        ASSERT_EQ(::unlink(Dest(name).c_str()), 0);
        ASSERT_EQ(::symlink("../victim", Dest(name).c_str()), 0);
    }
    ExpectCopied({});
    ASSERT_EQ(::unlink(Dest("a").c_str()), 0);
    ASSERT_EQ(::mkfifo(Dest("a").c_str(), 0644), 0);
    ExpectCopied({});
    EXPECT_EQ(ContentOf(Path("victim")), "untouched");
}

TEST_P(PosixFileCopyTest, KeepsHolesAsHoles)
{
    constexpr off_t kMegabyte = 1 << 20;
    const int fd = ::open(Source("holes").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    ASSERT_GE(fd, 0);
    const std::string data = Pattern(200000);
    for (const off_t at : {3 * kMegabyte, 20 * kMegabyte}) {
        EXPECT_EQ(::pwrite(fd, data.data(), data.size(), at), static_cast<ssize_t>(data.size()));
    }
    EXPECT_EQ(::ftruncate(fd, 64 * kMegabyte), 0);
    ::close(fd);
    WriteContent(Source("all"), "");
    ASSERT_EQ(::truncate(Source("all").c_str(), 32768), 0);

    PieceAction progress;
    CopyOptions options;
    options.progress = &progress;
    ExpectCopied(options);
    EXPECT_EQ(progress.Total(), static_cast<std::uint64_t>(64 * kMegabyte + 32768));
    for (const char* name : {"holes", "all"}) {
        struct stat from {};
        struct stat to {};
        ASSERT_EQ(::stat(Source(name).c_str(), &from), 0);
        ASSERT_EQ(::stat(Dest(name).c_str(), &to), 0);
        EXPECT_LE(to.st_blocks, from.st_blocks + 64) << name;
    }
}

TEST_P(PosixFileCopyTest, CopiesASourceThatGrowsOrShrinksToItsEnd)
{
    // A clone would be made at one moment, before or after the change.
    const auto folder = Open(Dest());
    PosixVolume& volume = static_cast<PosixFolder&>(*folder).Volume();
    volume.transfersFrom[volume.device].cloneRefused = true;
    constexpr std::size_t kBefore = 6'000'000;
    const std::string before = Pattern(kBefore);
    const std::vector<std::pair<std::size_t, std::string>> changes = {
        {kBefore, std::string(700'000, 'g')}, {5'000'000, ""}, {0, ""}};
    for (const auto& [kept, added] : changes) {
        WriteContent(Source("log"), before);
        SetModified(Source("log"), 1000);
        PieceAction progress([&, this] {
            ASSERT_EQ(::truncate(Source("log").c_str(), static_cast<off_t>(kept)), 0);
            std::ofstream(Source("log"), std::ios::app) << added;
        });
        CopyOptions options;
        options.progress = &progress;
        ASSERT_TRUE(Copy("log", options).Ok());
        // What went before the change is there; nothing is made up after the end.
        const std::string copy = ContentOf(Dest("log"));
        const std::string now = before.substr(0, kept) + added;
        EXPECT_TRUE(kept == 0 ? before.starts_with(copy) : copy == now)
            << kept << ": " << copy.size();
        struct stat details {};
        ASSERT_EQ(::stat(Dest("log").c_str(), &details), 0);
        EXPECT_EQ(details.st_mtim.tv_sec, 1000);
    }
}

TEST_P(PosixFileCopyTest, TakesAnItemForWhatItHasBecome)
{
    WriteTree(Source(), {"a=", "b->a", "c|", "d/"});
    const auto folder = Open(Source());
    const auto dest = Open(Dest());
    for (const char* name : {"a", "b", "c", "d"}) {
        for (const ItemKind listedAs :
             {ItemKind::File, ItemKind::Link, ItemKind::Special, ItemKind::Unknown}) {
            FindData item;
            item.name = name;
            item.kind = listedAs;
            const auto file = m_files.OpenSource(*folder, item, ReadAhead::Start);
            if (std::string(name) == "d") {
                EXPECT_EQ(KindOf(file), ErrorKind::IsAFolder);
            } else {
                ASSERT_TRUE(file.Ok()) << name;
                EXPECT_TRUE(m_files.CopyFile(**file, *dest, name, {}).Ok()) << name;
            }
        }
    }
    EXPECT_EQ(ReadTree(Dest()), (TreeLines{"a=", "b->a", "c|"}));
}

TEST_P(PosixFileCopyTest, WaitsForAFileServerToLetGoOfTheFile)
{
    WriteTree(Source(), {"a=x"});
    const UniqueFd leased(::open(Source("a").c_str(), O_RDWR | O_CLOEXEC));
    const auto oldHandler = std::signal(SIGIO, SIG_IGN);  // how the system asks for it
    if (::fcntl(leased.Get(), F_SETLEASE, F_WRLCK) != 0) {
        GTEST_SKIP() << "no leases in " << Path();
    }
    {
        const std::jthread server([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            EXPECT_EQ(::fcntl(leased.Get(), F_SETLEASE, F_UNLCK), 0);
        });
        EXPECT_TRUE(Copy("a").Ok());
    }
    (void)std::signal(SIGIO, oldHandler);
    EXPECT_EQ(ReadTree(Dest()), TreeLines{"a=x"});
}

TEST_P(PosixFileCopyTest, KeepsExtendedAttributesAlsoOfReadOnlyFiles)
{
    WriteTree(Source(), {"a=x"});
    const std::string large(3000, 'v');
    if (::setxattr(Source("a").c_str(), "user.large", large.data(), large.size(), 0) != 0) {
        GTEST_SKIP() << "no extended attributes of users in " << Path();
    }
    ASSERT_EQ(::setxattr(Source("a").c_str(), "user.empty", "", 0, 0), 0);
    ASSERT_EQ(::chmod(Source("a").c_str(), 0444), 0);
    CopyOptions options;
    options.replaceReadOnly = true;
    ExpectCopied(options);
    std::string value(4000, '\0');
    EXPECT_EQ(::getxattr(Dest("a").c_str(), "user.large", value.data(), value.size()), 3000);
    EXPECT_EQ(::getxattr(Dest("a").c_str(), "user.empty", nullptr, 0), 0);
}

// Version 2; user rw, user 1 r, group r, mask rw, other none: <linux/posix_acl_xattr.h>.
constexpr std::string_view kAcl{
    "\2\0\0\0"
    "\1\0\6\0\xff\xff\xff\xff"
    "\2\0\4\0\1\0\0\0"
    "\4\0\4\0\xff\xff\xff\xff"
    "\20\0\6\0\xff\xff\xff\xff"
    "\40\0\0\0\xff\xff\xff\xff",
    44};

TEST_P(PosixFileCopyTest, KeepsAnAccessControlListAndInheritsNone)
{
    WriteTree(Source(), {"listed=x", "plain=x", "sub/"});
    if (::setxattr(Source("listed").c_str(), "system.posix_acl_access", kAcl.data(), kAcl.size(),
                   0) != 0 ||
        ::setxattr(Dest().c_str(), "system.posix_acl_default", kAcl.data(), kAcl.size(), 0) != 0) {
        GTEST_SKIP() << "no access control lists in " << Path();
    }
    EXPECT_TRUE(Copy("listed").Ok());
    EXPECT_TRUE(Copy("plain").Ok());
    EXPECT_TRUE(m_files.CreateFolder(*Open(Dest()), "sub", Open(Source("sub")).get()).Ok());
    EXPECT_EQ(ReadTreeWithDetails(Dest()), ReadTreeWithDetails(Source()));
    std::string value(100, '\0');
    EXPECT_EQ(
        ::getxattr(Dest("listed").c_str(), "system.posix_acl_access", value.data(), value.size()),
        44);
    EXPECT_EQ(value.substr(0, 44), kAcl);
    EXPECT_LT(::getxattr(Dest("plain").c_str(), "system.posix_acl_access", nullptr, 0), 0);
    EXPECT_LT(::getxattr(Dest("sub").c_str(), "system.posix_acl_access", nullptr, 0), 0);
    EXPECT_LT(::getxattr(Dest("sub").c_str(), "system.posix_acl_default", nullptr, 0), 0);
}

TEST_F(DiskTest, TheGroupGetsNoMoreWhereAnAccessControlListCannotBeKept)
{
    WriteTree(Source(), {"listed=x"});
    if (::setxattr(Source("listed").c_str(), "system.posix_acl_access", kAcl.data(), kAcl.size(),
                   0) != 0) {
        GTEST_SKIP() << "no access control lists in " << Path();
    }
    const UniqueFd from(::open(Source("listed").c_str(), O_RDONLY | O_CLOEXEC));
    int pipe[2] = {-1, -1};  // nothing that could hold a list
    ASSERT_EQ(::pipe2(pipe, O_CLOEXEC), 0);
    const UniqueFd end(pipe[0]);
    const UniqueFd to(pipe[1]);
    mode_t mode = 0664;  // shows the list's mask
    EXPECT_TRUE(CopyExtendedAttributes(from.Get(), to.Get(), {false, false, &mode}).Ok());
    EXPECT_EQ(mode, 0644U);
}

TEST_P(PosixFileCopyTest, KeepsTheOwnerWhereAllowed)
{
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only the superuser gives files away";
    }
    WriteTree(Source(), {"a=x", "link->a", "pipe|", "sub/"});
    for (const char* name : {"a", "link", "pipe", "sub"}) {
        ASSERT_EQ(::lchown(Source(name).c_str(), 1234, 5678), 0);
        if (std::string(name) != "sub") {
            EXPECT_TRUE(Copy(name).Ok());
        }
    }
    ASSERT_EQ(::chmod(Source("a").c_str(), 06755), 0);
    EXPECT_TRUE(Copy("a").Ok());
    EXPECT_TRUE(m_files.CreateFolder(*Open(Dest()), "sub", Open(Source("sub")).get()).Ok());
    for (const char* name : {"a", "link", "pipe", "sub"}) {
        struct stat details {};
        ASSERT_EQ(::lstat(Dest(name).c_str(), &details), 0);
        EXPECT_EQ(details.st_uid, 1234U) << name;
        EXPECT_EQ(details.st_gid, 5678U) << name;
    }
    EXPECT_EQ(ModeOf(Dest("a")), 06755U);
}

class OtherDeviceTest : public DiskTest {};

TEST_F(OtherDeviceTest, CopiesToAnotherFileSystem)
{
    struct stat here {};
    struct stat there {};
    if (::stat(Path().c_str(), &here) != 0 || ::stat("/dev/shm", &there) != 0 ||
        here.st_dev == there.st_dev || ::access("/dev/shm", W_OK) != 0) {
        GTEST_SKIP() << "/dev/shm is not another file system";
    }
    WriteTree(Source(),
              {"small=x", "large=" + Pattern(5'000'000), "link->small", "pipe|", "holes="});
    ASSERT_EQ(::truncate(Source("holes").c_str(), 10'000'000), 0);
    const TempFolder other("/dev/shm");
    const auto into = Open(other.Path());
    const auto from = Open(Source());
    for (const char* name : {"small", "large", "link", "pipe", "holes"}) {
        EXPECT_TRUE(CopyBetween(*from, *into, name, name, {}).Ok()) << name;
    }
    EXPECT_EQ(ReadTreeWithDetails(other.Path()), ReadTreeWithDetails(Source()));
    EXPECT_TRUE(m_files.SyncWritten().Ok());
}

}  // namespace
}  // namespace quorbit
