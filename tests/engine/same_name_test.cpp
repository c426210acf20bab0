// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests files of one source that have one name at the destination, and names of one file (hard
// links).

#include <sys/stat.h>

#include "engine/run_fixture.h"

namespace quorbit {
namespace {

using namespace testing;

class SameNameTest : public RunFixture {
protected:
    static void IgnoreCase(FailingFileSystem& disk) { disk.IgnoreCase(); }
    [[nodiscard]] struct stat StatOf(const std::string& path) const
    {
        struct stat details = {};
        EXPECT_EQ(::lstat(Path(path).c_str(), &details), 0) << path;
        return details;
    }
    void Link(const std::string& from, const std::string& to) const
    {
        std::filesystem::create_hard_link(Path(from), Path(to));
    }
};

TEST_F(SameNameTest, ADestinationThatIgnoresCaseNeverLosesTheFirstFile)
{
    const std::tuple<TreeLines, CDirCopy, const char*, std::size_t> cases[] = {
        {{"source/A.txt=1", "source/a.txt=2"}, Entry(kTree), "copy 1 error 1", 1},
        {{"source/A.txt=1", "source/a.txt=2"}, Entry(kTree | DCF_SYNC), "copy 1 error 1", 1},
        {{"source/A.txt=1", "source/a.txt=2"}, Entry(kAll | DCF_INCREMENTAL), "copy 1 error 1", 1},
        {{"source/P/x=1", "source/p/x=2", "source/p/y=3"}, Entry(kTree), "error 1", 3},
        {{"source/P/x=1", "source/p/y=3"},
         FolderList(kTree, {"P", "p"}),
         "left 1 copy 1 error 1",
         2},
        {{"source/P/x=1"}, FolderList(kTree, {"P", "P"}), "copy 2", 2},
    };
    for (const auto& [source, entry, counters, items] : cases) {
        std::filesystem::remove_all(Path("@"));
        Write(source);
        Write({"dest/"});
        const RunResult run = Run({entry}, IgnoreCase);
        EXPECT_THAT(run.counters, HasSubstr(counters));
        EXPECT_LE(Tree("@/dest").size(), items);
        // Neither does a later run replace one by the other.
        const TreeLines before = Tree("@/dest");
        for (const char* name : {"A.txt", "a.txt"}) {
            if (std::filesystem::exists(Path("@/source/" + std::string(name)))) {
                SetModified(Path("@/source/" + std::string(name)), name[0] == 'a' ? 9e9 : 1000);
            }
        }
        EXPECT_EQ(Run({entry}, IgnoreCase).problems.Kept().size(), run.problems.Kept().size());
    }
}

TEST_F(SameNameTest, FlatFilesOfOneNameAreAWarning)
{
    Write({"source/one/a=1", "source/two/a=2", "source/two/b=3"});
    SetModified(Path("@/source/one/a"), 1000);
    SetModified(Path("@/source/two/a"), 2000);
    Link("@/source/two/b", "@/source/one/c");  // one file, two names: nothing to warn of
    for (const std::uint32_t flags : {std::uint32_t{0}, DCF_SYNC + 0U, DCF_SYNC + 0U}) {
        const RunResult run = Run({Entry(kAll | DCF_SUBFOLDERS | flags)});
        EXPECT_THAT(run.counters, Not(HasSubstr("error")));
        EXPECT_THAT(run.surface.warnings, Contains(HasSubstr("a: Another file")));
        EXPECT_THAT(run.surface.warnings, Not(Contains(HasSubstr("b: Another file"))));
    }
}

TEST_F(SameNameTest, NamesOfOneFileStayNamesOfOneFile)
{
    Write({"source/sub/a=1", "source/c=2", "source/alone=3", "dest/outside/"});
    Link("@/source/sub/a", "@/source/b");
    EXPECT_EQ(Run({Entry(kTree)}).counters, "copy 4");
    EXPECT_EQ(StatOf("@/dest/b").st_ino, StatOf("@/dest/sub/a").st_ino);
    EXPECT_EQ(StatOf("@/dest/b").st_nlink, 2U);
    EXPECT_EQ(StatOf("@/dest/alone").st_nlink, 1U);

    // Replacing them writes through no other name, in any kind of entry.
    const std::pair<std::uint32_t, const char*> cases[] = {
        {0, "copy 4"}, {DCF_SYNC, "sync 2 didn't sync 2"}, {DCF_INCREMENTAL, "backup 2"}};
    std::int64_t time = 4'000'000'000;
    for (const auto& [flags, counters] : cases) {
        std::filesystem::remove(Path("@/dest/outside/x"));
        Link("@/dest/b", "@/dest/outside/x");
        const std::string old = ContentOf(Path("@/dest/b"));
        WriteContent(Path("@/source/b"), old + "+");
        SetModified(Path("@/source/b"), time += 10);
        EXPECT_EQ(Run({Entry(kTree | flags)}).counters, counters);
        EXPECT_EQ(ContentOf(Path("@/dest/b")), old + "+");
        EXPECT_EQ(ContentOf(Path("@/dest/outside/x")), old);
        EXPECT_EQ(StatOf("@/dest/b").st_ino, StatOf("@/dest/sub/a").st_ino);
    }
    EXPECT_EQ(ContentOf(Path("@/dest/1b")), ContentOf(Path("@/dest/outside/x")));
}

TEST_F(SameNameTest, AFileThatCannotBeLinkedIsCopied)
{
    for (const bool replaced : {true, false}) {
        std::filesystem::remove_all(Path("@"));
        Write({"source/a=1", "dest/"});
        Link("@/source/a", "@/source/b");
        const RunResult run = Run({Entry(kAll)}, [&](FailingFileSystem& disk) {
            disk.RunBefore(Call::CopyFile, 2, [&] {
                for (const char* placed : {"@/dest/a", "@/dest/b"}) {
                    if (std::filesystem::remove(Path(placed)) && replaced) {
                        WriteContent(Path(placed), "not the copy");
                    }
                }
            });
        });
        EXPECT_EQ(run.counters, "copy 2");
        EXPECT_THAT(Tree("@/dest"), Contains(AnyOf("a=1", "b=1")));
        EXPECT_THAT(Tree("@/dest"), Each(Not(HasSubstr(".quorbit-"))));
    }
}

TEST_F(SameNameTest, FoldersThatWereChangedHaveTheTimeOfTheirSource)
{
    Write({"source/made/x=1", "source/into/x=1", "source/into/empty/", "source/same/x=1",
           "dest/into/", "dest/same/x=1", "dest/only/"});
    SetModified(Path("@/dest/same/x"), 4'000'000'000);
    for (const char* folder : {"into/empty", "made", "into", "same", ""}) {
        SetModified(Path("@/source/" + std::string(folder)), 1000, 5);
        SetModified(Path("@/dest/same"), 2000);
    }
    EXPECT_EQ(Run({Entry(kTree | DCF_SYNC)}).counters, "copy 2 didn't sync 1");
    for (const char* folder : {"into/empty", "made", "into", ""}) {
        const struct stat details = StatOf("@/dest/" + std::string(folder));
        EXPECT_EQ(details.st_mtim.tv_sec, 1000) << folder;
        EXPECT_EQ(details.st_mtim.tv_nsec, 5) << folder;
    }
    EXPECT_EQ(StatOf("@/dest/same").st_mtim.tv_sec, 2000);
    Write({"source/made/y=1"});
    const RunResult run = Run({Entry(kTree)}, [](FailingFileSystem& disk) {
        disk.FailAlways(Call::CopyFolderTime, Error(ErrorKind::Other));
    });
    EXPECT_THAT(run.counters, Not(HasSubstr("error")));
    EXPECT_THAT(run.surface.warnings, Contains(HasSubstr("time of the folder")));
}

}  // namespace
}  // namespace quorbit
