// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Compares the log of runs byte by byte.

#include "engine/run_fixture.h"

namespace quorbit {
namespace {

using testing::ElementsAre;

class RunTextTest : public RunFixture {};

// Returns a block of the log. Empty texts get no line.
std::string Block(const std::string& action, const std::string& source = "@/source/a.txt",
                  const std::string& dest = "@/dest/a.txt", const std::string& size = "1 KB")
{
    return "\nAction: " + action + "\nCurrent File: " + source + "\n" +
           (dest.empty() ? "" : "Destination File: " + dest + "\n") +
           (size.empty() ? "" : "File Size: " + size + "\n");
}

TEST_F(RunTextTest, EveryKindOfEntryHasItsBlocks)
{
    const std::string made = "Create Folder.";
    const std::string gone = "Delete Folder.";
    const std::string forged = "a\\x0D\\x0AERROR: b";
    const std::tuple<TreeLines, CDirCopy, std::string, Totals, TreeLines> cases[] = {
        {{"source/sub/a.txt=" + std::string(4096, 'x')},
         Entry(kTree, "@/source/", "@/x/dest"),
         Block(made, "@/source/", "@/x", "") + Block(made, "@/source/", "@/x/dest/", "") +
             Block(made, "@/source/sub/", "@/x/dest/sub", "") +
             Block("Copying File.", "@/source/sub/a.txt", "@/x/dest/sub/a.txt", "4 KB"),
         {.total = "1", .copy = 1},
         {}},
        // An entry of names creates the destination with the first file, an entry of masks always.
        {{"source/a.txt=a", "source/b.txt=b"},
         Names(DCF_NO_ATTRS, {"A.TXT"}),
         Block(made, "@/source/", "@/dest/", "") + Block("Copying File."),
         {.total = "1", .copy = 1},
         {"dest/", "dest/a.txt=a", "source/", "source/a.txt=a", "source/b.txt=b"}},
        {{"source/a.txt=a"}, Names(DCF_NO_ATTRS, {"none"}), "", {}, {"source/", "source/a.txt=a"}},
        {{"source/a.txt=a"},
         Entry(DCF_NO_ATTRS, "@/source", "@/dest", {"none"}),
         Block(made, "@/source/", "@/dest/", ""),
         {},
         {"dest/", "source/", "source/a.txt=a"}},
        // Deleted files have no destination line, and their folders are kept.
        {{"source/sub/a.tmp=a", "source/sub/b.txt=b"},
         Entry(DCF_NO_ATTRS | DCF_SUBFOLDERS | DCF_DELETE, "@/source", "@/dest", {"*.tmp"}),
         Block("Delete File.", "@/source/sub/a.tmp", ""),
         {.total = "1", .deleted = 1},
         {"source/", "source/sub/", "source/sub/b.txt=b"}},
        // Deleting a folder logs its subfolders, children first.
        {{"source/sub/deep/a.txt=a", "source/sub/deep/link->/"},
         Entry(kAll | DCF_DELETE | DCF_DELETE_FOLDER),
         Block(gone, "@/source/sub/deep/", "@/source/sub/deep/", "") +
             Block(gone, "@/source/sub/", "@/source/sub/", "") +
             Block(gone, "@/source/", "@/source/", ""),
         {.total = "1", .deleted = 1},
         {}},
        {{"source/.hidden=a", "dest/"},
         Entry(DCF_ALL_TYPES | DCF_ATTR_AND | DCF_ATTR_SYSTEM),
         Block("Didn't process file because file attributes didn't match.", "@/source/.hidden",
               "@/dest/.hidden"),
         {.total = "1"},
         {"dest/", "source/", "source/.hidden=a"}},
        // An invalid source is logged as one line, not as a block.
        {{"dest/"},
         Entry(kTree, "@/none"),
         "ERROR: Source path is invalid.   Path not found:  @/none/: No such file or directory\n",
         {.error = 1},
         {"dest/"}},
        // A file name with line breaks must not forge a log line.
        {{"source/a\r\nERROR: b=1", "dest/"},
         Entry(kAll),
         Block("Copying File.", "@/source/" + forged, "@/dest/" + forged),
         {.total = "1", .copy = 1},
         {"dest/", "dest/a\r\nERROR: b=1", "source/", "source/a\r\nERROR: b=1"}}};
    for (const auto& [before, entry, body, totals, after] : cases) {
        std::filesystem::remove_all(Path("@"));
        Write(before);
        const RunResult run = Run({entry});
        EXPECT_EQ(run.log, Log(body, totals));
        if (entry.m_strDest == Path("@/x/dest")) {
            EXPECT_EQ(Tree("@/x/dest"), Tree("@/source"));
            EXPECT_EQ(run.surface.bytes, 4096U);
        } else {
            EXPECT_EQ(Tree("@"), after);
        }
    }
}

TEST_F(RunTextTest, CopyAndSyncOverAnExistingFile)
{
    constexpr std::int64_t kTime = 1'600'000'000;
    const std::tuple<std::uint32_t, std::int64_t, const char*, const char*, Totals> cases[] = {
        {0, kTime + 9, "Copying File.", "new", {.total = "1", .copy = 1}},
        {DCF_SYNC, kTime - 1, "Sync File.", "new", {.total = "1", .sync = 1}},
        {DCF_SYNC, kTime, "Didn't Sync File.", "old", {.total = "1", .didntSync = 1}},
        {DCF_SYNC, kTime + 1, "Didn't Sync File.", "old", {.total = "1", .didntSync = 1}}};
    for (const auto& [flags, destTime, action, dest, totals] : cases) {
        Write({"source/a.txt=new", "dest/a.txt=old"});
        SetModified(Path("@/source/a.txt"), kTime, 999'999'999);  // whole seconds are compared
        SetModified(Path("@/dest/a.txt"), destTime);
        EXPECT_EQ(Run({Entry(kAll | flags)}).log, Log(Block(action), totals));
        EXPECT_EQ(ContentOf(Path("@/dest/a.txt")), dest);
    }
}

TEST_F(RunTextTest, IncrementalBackupInThreeRounds)
{
    Write({"source/a.txt=1", "dest/"});
    SetModified(Path("@/source/a.txt"), 1000);
    const std::vector<CDirCopy> entries{Entry(kAll | DCF_INCREMENTAL | DCF_SYNC)};
    EXPECT_EQ(Run(entries).log, Log(Block("Copying File."), {.total = "1", .copy = 1}));

    Write({"source/a.txt=2"});
    SetModified(Path("@/source/a.txt"), 1001);
    EXPECT_EQ(Run(entries).log, Log(Block("Incrementing backup."), {.total = "1", .backup = 1}));
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"a.txt=2", "a1.txt=1"}));

    EXPECT_EQ(Run(entries).log,
              Log(Block("Didn't backup file. No change detected."), {.total = "1"}));
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"a.txt=2", "a1.txt=1"}));
}

TEST_F(RunTextTest, AnErrorStandsBetweenItsActionAndItsFileWithAnEmptyLineAfterIt)
{
    Write({"source/a.txt=a", "dest/a.txt=mine"});
    std::filesystem::permissions(Path("@/dest/a.txt"), std::filesystem::perms(0444));
    EXPECT_EQ(Run({Entry(kAll)}).log,
              Log(Block("Copying File.\nERROR: Permission denied\n"), {.total = "1", .error = 1}));
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"a.txt=mine"}));
    EXPECT_EQ(Run({Entry(kAll | DCF_OVERWRITE_RO)}).counters, "copy 1");
    EXPECT_EQ(ContentOf(Path("@/dest/a.txt")), "a");
}

TEST_F(RunTextTest, AReadOnlyFileIsGuardedAlsoInAFolderThatTheRunHasMade)
{
    Write({"source/a.txt=1", "source/sub/a.txt=2"});
    for (const char* item : {"@/source/a.txt", "@/source/sub/a.txt"}) {
        std::filesystem::permissions(Path(item), std::filesystem::perms(0444));
    }
    EXPECT_EQ(Run({Entry(DCF_SUBFOLDERS | kAll)}).counters, "copy 1 error 1");
    EXPECT_EQ(Tree("@/dest").size(), 1U);
}

TEST_F(RunTextTest, LinesReachTheFileWhileWorkGoesOnWithoutALine)
{
    Write({"source/a=1", "source/b=2", "dest/"});
    const auto later = [] { s_now += std::chrono::seconds(1); };
    std::vector<std::string> seen;
    const auto look = [&] {
        const std::string log = LogSoFar();
        seen.push_back(log.substr(log.rfind("\r\n", log.size() - 3) + 2));
    };
    (void)Run({Entry(kAll), Entry(kAll | DCF_DELETE | DCF_DELETE_FOLDER)},
              [&](FailingFileSystem& disk) {
                  disk.RunBefore(Call::Next, 1, look);          // count pass: the header is written
                  disk.RunBefore(Call::IsProtected, 1, later);  // after the copies
                  disk.RunBefore(Call::DeleteFile, 1, look);    // during the deletion
              });
    (void)Run({Entry(kAll, "@/dest", "@/x"), Entry(kAll | DCF_SYNC, "@/dest", "@/x")},
              [&](FailingFileSystem& disk) {
                  disk.RunBefore(Call::List, 4, later);  // of the second walk
                  disk.RunBefore(Call::ReadDetails, 1, look);
              });
    Write({"big/c=" + std::string(1024 * 1024, 'x')});
    (void)Run({Entry(kAll, "@/big", "@/x")},
              [&](FailingFileSystem& disk) { disk.RunBefore(Call::CopyFile, 1, look); });
    EXPECT_THAT(seen, ElementsAre("\r\n", "File Size: 1 KB\r\n", "File Size: 1 KB\r\n",
                                  "Action: Copying File.\r\n"));
}

}  // namespace
}  // namespace quorbit
