// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a run writes into its log, to the byte.

#include "engine/run_fixture.h"

namespace quorbit {
namespace {

using testing::ElementsAre;

class RunTextTest : public RunFixture {};

TEST_F(RunTextTest, CopyWithItsFolders)
{
    Write({"source/sub/a.txt=" + std::string(4096, 'x')});
    const RunResult run = Run({Entry(kTree, "@/source/", "@/x/dest")});
    EXPECT_EQ(run.log, Log(R"(
Action: Create Folder.
Current File: @/source/
Destination File: @/x

Action: Create Folder.
Current File: @/source/
Destination File: @/x/dest/

Action: Create Folder.
Current File: @/source/sub/
Destination File: @/x/dest/sub

Action: Copying File.
Current File: @/source/sub/a.txt
Destination File: @/x/dest/sub/a.txt
File Size: 4 KB
)",
                           {.total = "1", .copy = 1}));
    EXPECT_EQ(Tree("@/x/dest"), Tree("@/source"));
    EXPECT_EQ(run.counters, "copy 1");
    EXPECT_EQ(run.surface.bytes, 4096U);
}

TEST_F(RunTextTest, AnEntryOfNamesGetsItsFolderWithItsFirstFile)
{
    Write({"source/a.txt=a", "source/b.txt=b"});
    (void)Run({Names(DCF_NO_ATTRS, {"none"})});
    EXPECT_FALSE(std::filesystem::exists(Path("@/dest")));
    const RunResult run = Run({Names(DCF_NO_ATTRS, {"A.TXT"})});
    EXPECT_EQ(run.log, Log(R"(
Action: Create Folder.
Current File: @/source/
Destination File: @/dest/

Action: Copying File.
Current File: @/source/a.txt
Destination File: @/dest/a.txt
File Size: 1 KB
)",
                           {.total = "1", .copy = 1}));
    EXPECT_EQ(Run({Entry(DCF_NO_ATTRS, "@/source", "@/empty", {"none"})}).counters, "");
    EXPECT_EQ(Tree("@/empty"), TreeLines{});  // that of masks gets it in any case
}

// The block of "a.txt".
std::string Block(const std::string& action)
{
    return "\nAction: " + action +
           "\nCurrent File: @/source/a.txt\nDestination File: @/dest/a.txt\nFile Size: 1 KB\n";
}

TEST_F(RunTextTest, CopyAndSyncOverAnExistingFile)
{
    constexpr std::int64_t kTime = 1'600'000'000;
    const struct {
        std::uint32_t flags;
        std::int64_t destTime;
        const char* action;
        const char* dest;
        Totals totals;
    } cases[] = {
        {0, kTime + 9, "Copying File.", "new", {.total = "1", .copy = 1}},
        {DCF_SYNC, kTime - 1, "Sync File.", "new", {.total = "1", .sync = 1}},
        {DCF_SYNC, kTime, "Didn't Sync File.", "old", {.total = "1", .didntSync = 1}},
        {DCF_SYNC, kTime + 1, "Didn't Sync File.", "old", {.total = "1", .didntSync = 1}},
    };
    for (const auto& c : cases) {
        Write({"source/a.txt=new", "dest/a.txt=old"});
        SetModified(Path("@/source/a.txt"), kTime, 999'999'999);  // whole seconds are compared
        SetModified(Path("@/dest/a.txt"), c.destTime);
        EXPECT_EQ(Run({Entry(kAll | c.flags)}).log, Log(Block(c.action), c.totals));
        EXPECT_EQ(ContentOf(Path("@/dest/a.txt")), c.dest);
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

TEST_F(RunTextTest, DeletedFilesHaveNoDestinationAndFoldersStay)
{
    Write({"source/sub/a.tmp=a", "source/sub/b.txt=b"});
    const RunResult run =
        Run({Entry(DCF_NO_ATTRS | DCF_SUBFOLDERS | DCF_DELETE, "@/source", "@/dest", {"*.tmp"})});
    EXPECT_EQ(run.log, Log(R"(
Action: Delete File.
Current File: @/source/sub/a.tmp
File Size: 1 KB
)",
                           {.total = "1", .deleted = 1}));
    EXPECT_EQ(Tree("@"), (TreeLines{"source/", "source/sub/", "source/sub/b.txt=b"}));
}

TEST_F(RunTextTest, ADeletedFolderNamesItsFoldersChildrenFirst)
{
    Write({"source/sub/deep/a.txt=a", "source/sub/deep/link->/"});
    const RunResult run = Run({Entry(kAll | DCF_DELETE | DCF_DELETE_FOLDER)});
    std::string body;
    for (const std::string folder : {"@/source/sub/deep/", "@/source/sub/", "@/source/"}) {
        body += "\nAction: Delete Folder.\nCurrent File: " + folder +
                "\nDestination File: " + folder + "\n";
    }
    EXPECT_EQ(run.log, Log(body, {.total = "1", .deleted = 1}));
    EXPECT_FALSE(std::filesystem::exists(Path("@/source")));
}

TEST_F(RunTextTest, AFileThatTheAttributesTurnAwayHasItsBlock)
{
    Write({"source/.hidden=a", "dest/"});
    EXPECT_EQ(Run({Entry(DCF_ALL_TYPES | DCF_ATTR_AND | DCF_ATTR_SYSTEM)}).log,
              Log(R"(
Action: Didn't process file because file attributes didn't match.
Current File: @/source/.hidden
Destination File: @/dest/.hidden
File Size: 1 KB
)",
                  {.total = "1"}));
    EXPECT_EQ(Tree("@/dest"), TreeLines{});
}

TEST_F(RunTextTest, AnInvalidSourceIsOneLineWithoutABlock)
{
    Write({"dest/"});
    const RunResult run = Run({Entry(kTree, "@/none")});
    EXPECT_EQ(run.log, Log("ERROR: Source path is invalid. \n", {.error = 1}));
    EXPECT_EQ(run.counters, "error 1");
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
    for (const char* item : {"@/source/a.txt", "@/source/sub/a.txt"})
        std::filesystem::permissions(Path(item), std::filesystem::perms(0444));
    EXPECT_EQ(Run({Entry(DCF_SUBFOLDERS | kAll)}).counters, "copy 1 error 1");
    EXPECT_EQ(Tree("@/dest").size(), 1U);
}

TEST_F(RunTextTest, NoNameForgesALine)
{
    Write({"source/a\r\nERROR: b=1", "dest/"});
    EXPECT_EQ(Run({Entry(kAll)}).log, Log(R"(
Action: Copying File.
Current File: @/source/a\x0D\x0AERROR: b
Destination File: @/dest/a\x0D\x0AERROR: b
File Size: 1 KB
)",
                                          {.total = "1", .copy = 1}));
    EXPECT_EQ(Tree("@/dest"), Tree("@/source"));
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
                  disk.RunBefore(Call::Next, 1, look);          // in the count: the head
                  disk.RunBefore(Call::IsProtected, 1, later);  // after the copies
                  disk.RunBefore(Call::DeleteFile, 1, look);    // in the deletion
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

TEST_F(RunTextTest, AnEmptyDocumentHasOnlyAFooter)
{
    const RunResult run = Run({});
    EXPECT_EQ(run.log, Footer({}));
    const std::vector<RecordingSurface::Box> expected{{"The Batch File is empty.", ""}};
    EXPECT_EQ(run.surface.messages, expected);
    EXPECT_EQ(run.surface.events, (std::vector<std::string>{"view log on", "ended"}));
}

}  // namespace
}  // namespace quorbit
