// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix_file_system.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <map>
#include <set>
#include <thread>

#include "disk_test.h"
#include "platform/leftover_name.h"
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

TEST_F(PosixFileSystemTest, ListsNamesOfAnyBytesWithTheirKind)
{
    const std::string longest(255, 'x');
    WriteTree(Source(), {"line\nend=", "\xff\xfe not UTF-8=", longest + "=", "back\\slash=", " =",
                         "sub/", "link->sub", "pipe|", ".hidden="});
    const auto items = ListAll(*Open(Source()));
    const std::map<std::string, ItemKind> expected = {
        {"line\nend", ItemKind::File}, {"\xff\xfe not UTF-8", ItemKind::File},
        {longest, ItemKind::File},     {"back\\slash", ItemKind::File},
        {" ", ItemKind::File},         {"sub", ItemKind::Folder},
        {"link", ItemKind::Link},      {"pipe", ItemKind::Special},
        {".hidden", ItemKind::File},
    };
    std::map<std::string, ItemKind> found;
    const auto folder = Open(Source());
    for (auto [name, item] : items) {
        // Some file systems leave the kind to the second call.
        ASSERT_TRUE(item.kind != ItemKind::Unknown || m_files.ReadDetails(*folder, item).Ok());
        found[name] = item.kind;
    }
    EXPECT_EQ(found, expected);
}

TEST_F(PosixFileSystemTest, ReadsOneFolderSeveralTimesAtOnce)
{
    for (int i = 0; i < 900; ++i) {
        WriteContent(Source("a file with a rather long name " + std::to_string(i)), "");
    }
    const auto folder = Open(Source());
    const auto first = m_files.List(*folder);
    FindData item;
    ASSERT_TRUE((*first)->Next(item).Ok());
    EXPECT_EQ(ListAll(*folder).size(), 900U);
    std::size_t count = 1;
    while (*(*first)->Next(item)) {
        ++count;
    }
    EXPECT_EQ(count, 900U);
    EXPECT_EQ(ListAll(*folder).size(), 900U);
}

TEST_F(PosixFileSystemTest, ProbesAnItemWithoutFollowingIt)
{
    WriteTree(Source(), {"a=12345", "sub/", "link->a", "pipe|"});
    SetModified(Source("a"), -2, 999999999);
    SetModified(Source("link"), 4102444800, 1);
    const auto folder = Open(Source());
    const auto file = m_files.Probe(*folder, "a");
    ASSERT_TRUE(file.Ok());
    EXPECT_EQ(file->kind, ItemKind::File);
    EXPECT_EQ(file->size, 5U);
    EXPECT_EQ(file->modified, -2);
    EXPECT_EQ(file->modifiedNsec, 999999999U);
    const auto link = m_files.Probe(*folder, "link");
    EXPECT_EQ(link->kind, ItemKind::Link);
    EXPECT_EQ(link->modified, 4102444800);
    EXPECT_EQ(m_files.Probe(*folder, "sub")->kind, ItemKind::Folder);
    EXPECT_EQ(m_files.Probe(*folder, "pipe")->kind, ItemKind::Special);
    EXPECT_EQ(KindOf(m_files.Probe(*folder, "b")), ErrorKind::Missing);
    EXPECT_EQ(KindOf(m_files.Probe(*folder, std::string(256, 'x'))), ErrorKind::NameTooLong);
}

TEST_F(PosixFileSystemTest, OpensTheFolderThatThePathNames)
{
    WriteTree(Source(), {"sub/", "link->sub", "file="});
    const FolderIdentity sub = Open(Source("sub"))->Identity();
    EXPECT_EQ(Open(Source("link"))->Identity(), sub);
    EXPECT_EQ(Open(Source("sub/"))->Identity(), sub);
    PosixFileSystem mapped({{'C', Source()}});
    EXPECT_EQ((*mapped.OpenFolder("C:\\sub\\"))->Identity(), sub);

    const std::vector<std::pair<std::string, ErrorKind>> failures = {
        {"", ErrorKind::Missing},
        {"C:\\sub\\", ErrorKind::Missing},
        {Source("none/"), ErrorKind::Missing},
        {Source("file/"), ErrorKind::NotAFolder},
        {Source("sub") + std::string("\0x", 2), ErrorKind::Missing},
    };
    for (const auto& [path, kind] : failures) {
        EXPECT_EQ(KindOf(m_files.OpenFolder(path)), kind) << path;
    }
}

TEST_F(PosixFileSystemTest, NoNameLeadsOutOfItsFolder)
{
    WriteTree(Path(), {"outside=x", "source/sub/"});
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
        EXPECT_FALSE(CopyBetween(*folder, *folder, name, "copy", {}).Ok()) << name;
    }
    EXPECT_EQ(ReadTree(Path()), (TreeLines{"dest/", "outside=x", "source/", "source/sub/"}));
}

TEST_F(PosixFileSystemTest, NeverEntersALinkThatIsSwappedIn)
{
    WriteTree(Path(), {"outside/", "source/sub/", "source/link->../outside"});
    EXPECT_EQ(KindOf(m_files.OpenSubfolder(*Open(Source()), "link")), ErrorKind::NotAFolder);
    const FolderIdentity outside = Open(Path("outside"))->Identity();
    std::atomic<bool> stop = false;
    std::jthread swapper([&] {
        while (!stop) {
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
    stop = true;
    EXPECT_GT(entered, 0);
}

TEST_F(PosixFileSystemTest, WorksBelowTheLongestPath)
{
    const std::string name(250, 'd');
    auto source = Open(Source());
    auto dest = Open(Dest());
    std::string path = Source();
    for (int depth = 0; depth < 20; ++depth) {
        ASSERT_TRUE(m_files.CreateFolder(*source, name, nullptr).Ok());
        ASSERT_TRUE(m_files.CreateFolder(*dest, name, source.get()).Ok());
        source = std::move(*m_files.OpenSubfolder(*source, name));
        dest = std::move(*m_files.OpenSubfolder(*dest, name));
        path += "/" + name;
    }
    ASSERT_GT(path.size(), std::size_t{PATH_MAX});
    EXPECT_EQ(Open(path)->Identity(), source->Identity());
    EXPECT_EQ(Open(path + "/")->Identity(), source->Identity());
    const int file = ::openat(static_cast<PosixFolder&>(*source).Descriptor(), "f",
                              O_CREAT | O_WRONLY | O_CLOEXEC, 0644);
    EXPECT_EQ(::write(file, "deep", 4), 4);
    ::close(file);
    EXPECT_TRUE(CopyBetween(*source, *dest, "f", "f", {}).Ok());
    EXPECT_EQ(ReadTreeWithDetails(Dest()), ReadTreeWithDetails(Source()));
    EXPECT_TRUE(m_files.DeleteFile(*dest, "f").Ok());
    EXPECT_EQ(ReadTree(Dest()).size(), 20U);
}

TEST_F(PosixFileSystemTest, KnowsWhenAFolderHasGone)
{
    WriteTree(Source(), {"sub/"});
    const auto folder = Open(Source("sub"));
    EXPECT_TRUE(m_files.StillThere(*folder));
    ASSERT_EQ(::rename(Source("sub").c_str(), Source("other").c_str()), 0);
    EXPECT_TRUE(m_files.StillThere(*folder));
    ASSERT_EQ(::rmdir(Source("other").c_str()), 0);
    EXPECT_FALSE(m_files.StillThere(*folder));
    EXPECT_EQ(KindOf(m_files.CreateFolder(*folder, "x", nullptr)), ErrorKind::Missing);
    WriteTree(Source(), {"a=x"});
    for (const bool expectMissing : {true, false}) {
        CopyOptions options;
        options.expectMissing = expectMissing;
        EXPECT_EQ(KindOf(CopyBetween(*Open(Source()), *folder, "a", "a", options)),
                  ErrorKind::Missing);
    }
}

TEST_F(PosixFileSystemTest, ProtectsTheRootTheHomeAndWhatIsAbove)
{
    WriteTree(Path(), {"real/users/me/Data/", "real/other/", "link->real/users"});
    const ScopedVariable home("HOME", Path("link/me"));
    for (const std::string& path : {std::string("/"), Path(), Path("real"), Path("real/users"),
                                    Path("link"), Path("real/users/me"), Path("link/me/")}) {
        EXPECT_TRUE(m_files.IsProtected(*Open(path))) << path;
    }
    EXPECT_FALSE(m_files.IsProtected(*Open(Path("real/users/me/Data"))));
    EXPECT_FALSE(m_files.IsProtected(*Open(Path("real/other"))));
}

TEST_F(PosixFileSystemTest, CreatesAFolderLikeAnother)
{
    WriteTree(Source(), {"shared/", "closed/"});
    ASSERT_EQ(::chmod(Source("shared").c_str(), 03775), 0);
    ASSERT_EQ(::chmod(Source("closed").c_str(), 0550), 0);
    const auto dest = Open(Dest());
    EXPECT_TRUE(m_files.CreateFolder(*dest, "shared", Open(Source("shared")).get()).Ok());
    EXPECT_TRUE(m_files.CreateFolder(*dest, "closed", Open(Source("closed")).get()).Ok());
    const mode_t mask = ::umask(027);
    EXPECT_TRUE(m_files.CreateFolder(*dest, "plain", nullptr).Ok());
    ::umask(mask);
    EXPECT_EQ(ReadTreeWithDetails(Dest()),
              (TreeLines{"closed/ 0750", "plain/ 0750", "shared/ 3775"}));
    EXPECT_EQ(KindOf(m_files.CreateFolder(*dest, "plain", nullptr)), ErrorKind::AlreadyExists);
    EXPECT_TRUE(m_files.SyncWritten().Ok());
}

TEST_F(PosixFileSystemTest, NeitherLinkNorRenameReplacesAnything)
{
    WriteTree(Source(), {"a=new", "taken=old", "link->taken"});
    const auto folder = Open(Source());
    EXPECT_EQ(KindOf(m_files.Link(*folder, "a", "taken")), ErrorKind::AlreadyExists);
    EXPECT_EQ(KindOf(m_files.Rename(*folder, "a", "taken")), ErrorKind::AlreadyExists);
    EXPECT_EQ(KindOf(m_files.Link(*folder, "a", "link")), ErrorKind::AlreadyExists);
    EXPECT_EQ(KindOf(m_files.Link(*folder, "none", "b")), ErrorKind::Missing);
    EXPECT_TRUE(m_files.Link(*folder, "a", "a1").Ok());
    EXPECT_TRUE(m_files.Link(*folder, "link", "link1").Ok());
    EXPECT_TRUE(m_files.Rename(*folder, "a", "b").Ok());
    EXPECT_EQ(ReadTree(Source()),
              (TreeLines{"a1=new", "b=new", "link->taken", "link1->taken", "taken=old"}));
}

TEST_F(PosixFileSystemTest, DeletesWhatHasTheNameAndNothingElse)
{
    WriteTree(Source(), {"readonly=x", "link->sub", "pipe|", "sub/a="});
    ASSERT_EQ(::chmod(Source("readonly").c_str(), 0444), 0);
    const auto folder = Open(Source());
    for (const char* name : {"readonly", "link", "pipe"}) {
        EXPECT_TRUE(m_files.DeleteFile(*folder, name).Ok()) << name;
    }
    EXPECT_EQ(KindOf(m_files.DeleteFile(*folder, "sub")), ErrorKind::IsAFolder);
    EXPECT_EQ(KindOf(m_files.DeleteFile(*folder, "none")), ErrorKind::Missing);
    EXPECT_EQ(KindOf(m_files.RemoveFolder(*folder, "sub")), ErrorKind::NotEmpty);
    EXPECT_EQ(ReadTree(Source()), (TreeLines{"sub/", "sub/a="}));
    EXPECT_TRUE(m_files.DeleteFile(*Open(Source("sub")), "a").Ok());
    EXPECT_TRUE(m_files.RemoveFolder(*folder, "sub").Ok());
    EXPECT_EQ(ReadTree(Source()), TreeLines{});
}

TEST_F(PosixFileSystemTest, SaysSoWhenDescriptorsRunOut)
{
    WriteTree(Source(), {"sub/", "a="});
    const auto folder = Open(Source());
    rlimit old{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &old), 0);
    const rlimit none = {0, old.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    FindData item;
    item.name = "a";
    item.kind = ItemKind::File;
    EXPECT_EQ(KindOf(m_files.OpenSubfolder(*folder, "sub")), ErrorKind::TooManyOpen);
    EXPECT_EQ(KindOf(m_files.OpenFolder(Source())), ErrorKind::TooManyOpen);
    EXPECT_EQ(KindOf(m_files.OpenSource(*folder, item, ReadAhead::Start)), ErrorKind::TooManyOpen);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &old), 0);
    EXPECT_TRUE(m_files.OpenSubfolder(*folder, "sub").Ok());
}

TEST_F(PosixFileSystemTest, SweepsTheLeftoversOfDeadRunsOnly)
{
    const std::string dead = ".quorbit-0123456789abcdef.tmp";
    const std::string live = ".quorbit-0123456789abcde0.tmp";
    const std::string youngLink = ".quorbit-0123456789abcde1.tmp";
    const std::string folder = ".quorbit-0123456789abcde2.tmp";
    const TreeLines others = {".quorbit-0123456789abcdeg.tmp=", ".quorbit-0123456789abcde.tmp=",
                              ".quorbit-0123456789abcdef.tmp2=", "quorbit-0123456789abcdef.tmp="};
    WriteTree(Dest(), {dead + "=", live + "=", youngLink + "->a", folder + "/"});
    WriteTree(Dest(), others);
    ASSERT_EQ(::chmod(Dest(dead).c_str(), 0400), 0);
    const UniqueFd held(::open(Dest(live).c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(::flock(held.Get(), LOCK_EX), 0);

    std::set<std::string> leftovers;
    const auto opened = Open(Dest());
    for (const auto& [name, item] : ListAll(*opened)) {
        if (item.leftover) {
            leftovers.insert(name);
        }
    }
    leftovers.erase(folder);  // where the listing does not tell that it is one
    EXPECT_EQ(leftovers, (std::set{dead, live, youngLink}));

    m_files.SweepLeftovers(*opened);
    TreeLines expected = others;
    expected.insert(expected.end(), {live + "=", youngLink + "->a", folder + "/"});
    std::ranges::sort(expected);
    EXPECT_EQ(ReadTree(Dest()), expected);
}

TEST(LeftoverNameTest, IsAlwaysNewAndAlwaysRecognised)
{
    std::set<std::string> names;
    for (int i = 0; i < 1000; ++i) {
        const std::string name = MakeLeftoverName();
        EXPECT_TRUE(IsLeftoverName(name)) << name;
        EXPECT_TRUE(names.insert(name).second);
    }
}

}  // namespace
}  // namespace quorbit
