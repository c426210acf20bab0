// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/posix_file_system.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <filesystem>
#include <map>
#include <set>
#include <thread>

#include "platform/leftover_name.h"
#include "platform/posix/disk_test.h"
#include "platform/posix/errno_error.h"
#include "support/scoped_variable.h"

namespace quorbit {
namespace {

class PosixFileSystemTest : public DiskTest {
protected:
    std::map<std::string, FindData> ListAll(const Folder& folder)
    {
        std::map<std::string, FindData> items;
        const auto listing = m_files.List(folder);
        EXPECT_TRUE(listing.Ok());
        FindData item;
        for (;;) {
            const Result<bool> more = (*listing)->Next(item);
            EXPECT_TRUE(more.Ok());
            if (!more || !*more) {
                return items;
            }
            EXPECT_TRUE(items.emplace(item.name, item).second) << item.name;
        }
    }
};

TEST(ErrorTest, OnlyOneCodeMeansThatThereIsNothing)
{
    for (int code = 1; code < 200; ++code) {
        EXPECT_EQ(ErrorFromErrno(code).Kind() == ErrorKind::Missing, code == ENOENT) << code;
    }
}

TEST_F(PosixFileSystemTest, ListsNamesOfAnyBytesWithTheirKind)
{
    using enum ItemKind;
    const std::map<std::string, ItemKind> expected = {{"line\nend", File},
                                                      {"\xff\xfe not UTF-8", File},
                                                      {std::string(255, 'x'), File},
                                                      {"back\\x", File},
                                                      {" ", File},
                                                      {".hidden", File},
                                                      {"sub", Folder},
                                                      {"link", Link},
                                                      {"pipe", Special}};
    for (const auto& [name, kind] : expected) {
        Write({"source/" + name +
               (kind == File     ? "="
                : kind == Folder ? "/"
                : kind == Link   ? "->sub"
                                 : "|")});
    }
    std::map<std::string, ItemKind> found;
    const auto folder = Open(Source());
    for (auto [name, item] : ListAll(*folder)) {
        // Some file systems report DT_UNKNOWN in listings; see readdir(3).
        ASSERT_TRUE(item.kind != Unknown || m_files.ReadDetails(*folder, item).Ok());
        found[name] = item.kind;
    }
    EXPECT_EQ(found, expected);
}

TEST_F(PosixFileSystemTest, OpensTheFolderThatThePathNames)
{
    Write({"source/sub/", "source/link->sub", "source/file="});
    const FolderIdentity sub = Open(Source("sub"))->Identity();
    EXPECT_EQ(Open(Source("link"))->Identity(), sub);
    EXPECT_EQ(Open(Source("sub/"))->Identity(), sub);
    PosixFileSystem mapped({{"C:", Source()}});
    EXPECT_EQ((*mapped.OpenFolder("C:\\sub\\"))->Identity(), sub);
    for (const std::string& path : {std::string(), std::string("C:\\sub\\"), Source("none/"),
                                    Source("sub") + std::string("\0x", 2)}) {
        EXPECT_EQ(KindOf(m_files.OpenFolder(path)), ErrorKind::Missing) << path;
    }
    EXPECT_EQ(KindOf(m_files.OpenFolder(Source("file/"))), ErrorKind::NotAFolder);
}

TEST_F(PosixFileSystemTest, NoNameLeadsOutOfItsFolder)
{
    Write({"outside=x", "source/sub/"});
    const auto folder = Open(Source());
    for (const std::string& name :
         {std::string(".."), std::string("."), std::string(), std::string("../outside"),
          std::string("sub/.."), std::string("sub\0x", 5)}) {
        EXPECT_FALSE(m_files.OpenSubfolder(*folder, name).Ok()) << name;
        EXPECT_FALSE(m_files.Probe(*folder, name).Ok()) << name;
        EXPECT_FALSE(m_files.SetAttributes(*folder, name, kAttributeReadOnly).Ok()) << name;
        EXPECT_FALSE(m_files.DeleteFile(*folder, name).Ok()) << name;
        EXPECT_FALSE(m_files.RemoveFolder(*folder, name).Ok()) << name;
        EXPECT_FALSE(m_files.CreateFolder(*folder, name, nullptr).Ok()) << name;
        EXPECT_FALSE(m_files.Rename(*folder, "sub", name).Ok()) << name;
        EXPECT_FALSE(m_files.Rename(*folder, name, "new").Ok()) << name;
        EXPECT_FALSE(m_files.Link(*folder, name, "new").Ok()) << name;
        FindData item;
        item.name = name;
        EXPECT_FALSE(m_files.ReadDetails(*folder, item).Ok()) << name;
        EXPECT_FALSE(m_files.ReadAttributes(*folder, item).Ok()) << name;
        EXPECT_FALSE(CopyBetween(*folder, *folder, name, "copy").Ok()) << name;
    }
    EXPECT_EQ(Tree(), (TreeLines{"dest/", "outside=x", "source/", "source/sub/"}));
}

TEST_F(PosixFileSystemTest, NeverEntersALinkThatIsSwappedIn)
{
    Write({"outside/", "source/sub/", "source/link->../outside"});
    EXPECT_EQ(KindOf(m_files.OpenSubfolder(*Open(Source()), "link")), ErrorKind::NotAFolder);
    const FolderIdentity outside = Open(Path("outside"))->Identity();
    const std::jthread swapper([&](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            EXPECT_EQ(::renameat2(AT_FDCWD, Source("sub").c_str(), AT_FDCWD, Source("link").c_str(),
                                  RENAME_EXCHANGE),
                      0);
        }
    });
    const auto folder = Open(Source());
    int entered = 0;
    for (int round = 0; round < 20000; ++round) {
        const auto sub = m_files.OpenSubfolder(*folder, "sub");
        entered += sub ? 1 : 0;
        ASSERT_TRUE(sub ? (*sub)->Identity() != outside : KindOf(sub) == ErrorKind::NotAFolder);
    }
    EXPECT_GT(entered, 0);
}

TEST_F(PosixFileSystemTest, OpensAFolderByAPathLongerThanTheSystemTakes)
{
    const std::string name(250, 'd');
    auto folder = Open(Source());
    std::string path = Source();
    for (; path.size() < PATH_MAX; path += "/" + name) {
        ASSERT_TRUE(m_files.CreateFolder(*folder, name, nullptr).Ok());
        folder = std::move(*m_files.OpenSubfolder(*folder, name));
    }
    EXPECT_EQ(Open(path)->Identity(), folder->Identity());
    EXPECT_EQ(Open(path + "/")->Identity(), folder->Identity());
}

TEST_F(PosixFileSystemTest, KnowsWhenAFolderHasGone)
{
    Write({"source/a=x", "source/sub/"});
    const auto folder = Open(Source("sub"));
    EXPECT_TRUE(m_files.StillThere(*folder));
    std::filesystem::rename(Source("sub"), Source("other"));
    EXPECT_TRUE(m_files.StillThere(*folder));
    std::filesystem::remove(Source("other"));
    EXPECT_FALSE(m_files.StillThere(*folder));
    EXPECT_EQ(KindOf(m_files.CreateFolder(*folder, "x", nullptr)), ErrorKind::Missing);
    for (const bool expectMissing : {true, false}) {
        EXPECT_EQ(KindOf(CopyBetween(*Open(Source()), *folder, "a", "a",
                                     {.expectMissing = expectMissing})),
                  ErrorKind::Missing);
    }
}

TEST_F(PosixFileSystemTest, ProtectsTheRootTheHomeAndWhatIsAbove)
{
    Write({"real/users/me/Data/", "real/other/", "link->real/users"});
    const ScopedVariable home("HOME", Path("link/me"));
    for (const std::string& path : {std::string("/"), Path(), Path("real"), Path("real/users"),
                                    Path("link"), Path("real/users/me"), Path("link/me/")}) {
        EXPECT_TRUE(m_files.IsProtected(*Open(path))) << path;
    }
    EXPECT_FALSE(m_files.IsProtected(*Open(Path("real/users/me/Data"))));
    EXPECT_FALSE(m_files.IsProtected(*Open(Path("real/other"))));
}

TEST_F(PosixFileSystemTest, TellsWhatIsMountedAndWhatIsALink)
{
    Write({"folder/", "link->folder", "file=x"});
    EXPECT_TRUE(m_files.IsMountPoint(*Open("/proc")));
    EXPECT_FALSE(m_files.IsMountPoint(*Open("/proc/self")));
    EXPECT_FALSE(m_files.IsMountPoint(*Open(Path("folder"))));
    EXPECT_EQ(m_files.OpenSubfolder(*Open(Path()), "link").GetError().Text(), "Is a link");
    EXPECT_EQ(m_files.OpenSubfolder(*Open(Path()), "file").GetError().Text(), "Not a directory");
}

TEST_F(PosixFileSystemTest, CreatesAFolderLikeAnother)
{
    Write({"source/shared/", "source/closed/"});
    SetMode(Source("shared"), 03775);
    SetMode(Source("closed"), 0550);
    const auto dest = Open(Dest());
    for (const char* name : {"shared", "closed"}) {
        EXPECT_TRUE(m_files.CreateFolder(*dest, name, Open(Source(name)).get()).Ok());
    }
    const mode_t mask = ::umask(027);
    EXPECT_TRUE(m_files.CreateFolder(*dest, "plain", nullptr).Ok());
    ::umask(mask);
    EXPECT_EQ(ReadTreeWithDetails(Dest()),
              (TreeLines{"closed/ 0750", "plain/ 0750", "shared/ 3775"}));
    EXPECT_EQ(KindOf(m_files.CreateFolder(*dest, "plain", nullptr)), ErrorKind::AlreadyExists);
}

TEST_F(PosixFileSystemTest, NeitherLinkNorRenameReplacesAnything)
{
    Write({"source/a=new", "source/taken=old", "source/link->taken"});
    const auto folder = Open(Source());
    EXPECT_EQ(KindOf(m_files.Link(*folder, "a", "taken")), ErrorKind::AlreadyExists);
    EXPECT_EQ(KindOf(m_files.Rename(*folder, "a", "taken")), ErrorKind::AlreadyExists);
    EXPECT_EQ(KindOf(m_files.Link(*folder, "a", "link")), ErrorKind::AlreadyExists);
    EXPECT_EQ(KindOf(m_files.Link(*folder, "none", "b")), ErrorKind::Missing);
    EXPECT_TRUE(m_files.Link(*folder, "a", "a1").Ok());
    EXPECT_TRUE(m_files.Link(*folder, "link", "link1").Ok());
    EXPECT_TRUE(m_files.Rename(*folder, "a", "b").Ok());
    EXPECT_EQ(Tree("source"),
              (TreeLines{"a1=new", "b=new", "link->taken", "link1->taken", "taken=old"}));
}

TEST_F(PosixFileSystemTest, DeletesWhatHasTheNameAndNothingElse)
{
    Write({"source/readonly=x", "source/link->sub", "source/pipe|", "source/sub/a="});
    SetMode(Source("readonly"), 0444);
    const auto folder = Open(Source());
    for (const char* name : {"readonly", "link", "pipe"}) {
        EXPECT_TRUE(m_files.DeleteFile(*folder, name).Ok()) << name;
    }
    EXPECT_EQ(KindOf(m_files.DeleteFile(*folder, "sub")), ErrorKind::IsAFolder);
    EXPECT_EQ(KindOf(m_files.DeleteFile(*folder, "none")), ErrorKind::Missing);
    EXPECT_EQ(KindOf(m_files.RemoveFolder(*folder, "sub")), ErrorKind::NotEmpty);
    EXPECT_EQ(Tree("source"), (TreeLines{"sub/", "sub/a="}));
    EXPECT_TRUE(m_files.DeleteFile(*Open(Source("sub")), "a").Ok());
    EXPECT_TRUE(m_files.RemoveFolder(*folder, "sub").Ok());
    EXPECT_EQ(Tree("source"), TreeLines{});
}

TEST_F(PosixFileSystemTest, AFileThatCannotBeDeletedStaysReadOnly)
{
    Write({"source/a=x"});
    SetMode(Source("a"), 0464);
    // Forbid deletion: for root only an append-only folder does.
    const UniqueFd folder(::open(Source().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    int flags = 0;
    const bool hasFlags = ::ioctl(folder.Get(), FS_IOC_GETFLAGS, &flags) == 0;
    const int forbidden = flags | FS_APPEND_FL;
    const bool set = hasFlags && ::ioctl(folder.Get(), FS_IOC_SETFLAGS, &forbidden) == 0;
    if (!set) {
        SetMode(Source(), 0555);
    }
    const Status deleted = m_files.DeleteFile(*Open(Source()), "a");
    if (set) {
        EXPECT_EQ(::ioctl(folder.Get(), FS_IOC_SETFLAGS, &flags), 0);
    }
    SetMode(Source(), 0755);
    if (deleted) {
        GTEST_SKIP() << "nothing forbids root to delete here";
    }
    EXPECT_EQ(KindOf(deleted), ErrorKind::AccessDenied);
    EXPECT_EQ(ModeOf(Source("a")), 0464U);
}

TEST_F(PosixFileSystemTest, SweepsTheLeftoversOfDeadRunsOnly)
{
    const std::string dead = MakeLeftoverName();
    const std::string live = ".quorbit-0123456789abcde0.tmp";
    const std::string youngLink = ".quorbit-0123456789abcde1.tmp";
    const std::string deadStaging = ".quorbit-0123456789abcde2.tmp";
    const std::string liveStaging = ".quorbit-0123456789abcde3.tmp";
    const std::string foreign = ".quorbit-0123456789abcde4.tmp";
    TreeLines kept = {".quorbit-0123456789abcde.tmp=",
                      ".quorbit-0123456789abcdef.tmp2=",
                      ".quorbit-0123456789abcdeg.tmp=",
                      "quorbit-0123456789abcdef.tmp=",
                      live + "=",
                      youngLink + "->a",
                      liveStaging + "/",
                      liveStaging + "/" + dead + "=",
                      foreign + "/",
                      foreign + "/file="};
    WriteTree(Dest(), kept);
    WriteTree(Dest(), {dead + "=", deadStaging + "/" + dead + "=", foreign + "/" + dead + "="});
    SetMode(Dest(dead), 0400);
    const UniqueFd held(::open(Dest(live).c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(::flock(held.Get(), LOCK_EX), 0);
    const UniqueFd heldFolder(::open(Dest(liveStaging).c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(::flock(heldFolder.Get(), LOCK_EX), 0);

    std::set<std::string> leftovers;
    const auto opened = Open(Dest());
    for (const auto& [name, item] : ListAll(*opened)) {
        if (item.leftover) {
            leftovers.insert(name);
        }
    }
    EXPECT_EQ(leftovers, (std::set{dead, live, youngLink, deadStaging, liveStaging, foreign}));
    m_files.SweepLeftovers(*opened);
    std::ranges::sort(kept);
    EXPECT_EQ(ReadTree(Dest()), kept);
    EXPECT_NE(MakeLeftoverName(), MakeLeftoverName());
}

TEST_F(PosixFileSystemTest, CopiesFromAStagingFolderAreAsOthers)
{
    Write({"source/a=new", "dest/old=old", "dest/sub/old=old", "dest/changed=other"});
    SetMode(Source("a"), 0640);
    const auto dest = Open(Dest());
    const auto sub = Open(Dest("sub"));
    EXPECT_FALSE(m_files.NamesCopies(*dest));
    VolumeOf(*dest).takesAnonymousFiles = false;
    EXPECT_TRUE(m_files.NamesCopies(*dest));
    EXPECT_TRUE(m_files.MayStageIn(*dest, *sub));
    SetMode(Dest("sub"), 02755);
    EXPECT_FALSE(m_files.MayStageIn(*dest, *Open(Dest("sub")))) << "another group";

    auto staging = m_files.CreateStagingFolder(*dest);
    ASSERT_TRUE(staging.Ok());
    const auto from = Open(Source());
    const FindData item = m_files.Probe(*from, "a").Value();
    const auto place = [&](const Folder& folder, const std::string& name, bool durable,
                           const CopyOptions& options) {
        const auto file = m_files.OpenSource(*from, item, ReadAhead::No);
        const auto copy = m_files.Prepare(**file, **staging, nullptr);
        EXPECT_TRUE(copy.Ok());
        PreparedCopy* const single = copy->get();
        EXPECT_TRUE(!durable || m_files.MakeDurable({&single, 1}).Ok());
        PosixFileSystem other;
        other.SweepLeftovers(*Open(Dest()));
        return m_files.Place(**copy, folder, name, options);
    };
    const FindData old = m_files.Probe(*sub, "old").Value();
    const FindData changed = m_files.Probe(*dest, "old").Value();
    for (const bool durable : {false, true}) {
        EXPECT_TRUE(place(*dest, "new", durable, {}).Ok());
        EXPECT_EQ(KindOf(place(*dest, "old", durable, {.mustBeMissing = true})),
                  ErrorKind::AlreadyExists);
        EXPECT_EQ(
            KindOf(place(*dest, "changed", durable, {.replaces = changed, .exchanges = true})),
            ErrorKind::Changed);
    }
    EXPECT_TRUE(place(*sub, "old", true, {.replaces = old, .exchanges = true}).Ok());
    EXPECT_EQ(ModeOf(Dest("new")), 0640U);
    staging = Error(ErrorKind::Other);
    EXPECT_EQ(ReadTree(Dest()),
              (TreeLines{"changed=other", "new=new", "old=old", "sub/", "sub/old=new"}));
}

}  // namespace
}  // namespace quorbit
