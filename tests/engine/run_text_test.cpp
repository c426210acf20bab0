// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a run writes into its log, to the byte.

#include "engine/run_fixture.h"

namespace quorbit {
namespace {

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
    const RunResult run = Run({Names(DCF_NO_ATTRS, {"A.TXT"}), Names(DCF_NO_ATTRS, {"none"})});
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

TEST_F(RunTextTest, EveryDecisionForAnExistingFile)
{
    constexpr std::int64_t kTime = 1'600'000'000;
    const struct {
        std::uint32_t flags;
        std::int64_t destTime;
        const char* action;
        TreeLines dest;
        Totals totals;
    } cases[] = {
        {0, kTime + 9, "Copying File.", {"a.txt=new"}, {.total = "1", .copy = 1}},
        {DCF_SYNC, kTime - 1, "Sync File.", {"a.txt=new"}, {.total = "1", .sync = 1}},
        {DCF_SYNC, kTime, "Didn't Sync File.", {"a.txt=old"}, {.total = "1", .didntSync = 1}},
        {DCF_SYNC, kTime + 1, "Didn't Sync File.", {"a.txt=old"}, {.total = "1", .didntSync = 1}},
        {DCF_INCREMENTAL | DCF_SYNC,
         kTime - 1,
         "Incrementing backup.",
         {"a.txt=new", "a1.txt=old"},
         {.total = "1", .backup = 1}},
        {DCF_INCREMENTAL | DCF_SYNC,
         kTime,
         "Didn't backup file. No change detected.",
         {"a.txt=old"},
         {.total = "1"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.action);
        std::filesystem::remove_all(Path("@/dest"));
        Write({"source/a.txt=new", "dest/a.txt=old"});
        SetModified(Path("@/source/a.txt"), kTime, 999'999'999);  // whole seconds are compared
        SetModified(Path("@/dest/a.txt"), c.destTime, 0);
        EXPECT_EQ(Run({Entry(kAll | c.flags)}).log, Log("\nAction: " + std::string(c.action) + R"(
Current File: @/source/a.txt
Destination File: @/dest/a.txt
File Size: 1 KB
)",
                                                        c.totals));
        EXPECT_EQ(Tree("@/dest"), c.dest);
    }
}

TEST_F(RunTextTest, IncrementalBackupInThreeRounds)
{
    Write({"source/a.txt=1", "dest/"});
    SetModified(Path("@/source/a.txt"), 1000);
    const std::vector<CDirCopy> entries{Entry(kAll | DCF_INCREMENTAL)};
    const auto block = [](const std::string& action) {
        return "\nAction: " + action +
               "\nCurrent File: @/source/a.txt\nDestination File: @/dest/a.txt\nFile Size: 1 KB\n";
    };
    EXPECT_EQ(Run(entries).log, Log(block("Copying File."), {.total = "1", .copy = 1}));
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"a.txt=1"}));

    Write({"source/a.txt=2"});
    SetModified(Path("@/source/a.txt"), 1001);
    EXPECT_EQ(Run(entries).log, Log(block("Incrementing backup."), {.total = "1", .backup = 1}));
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"a.txt=2", "a1.txt=1"}));

    EXPECT_EQ(Run(entries).log,
              Log(block("Didn't backup file. No change detected."), {.total = "1"}));
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
    for (const char* folder : {"sub/deep/", "sub/", ""})
        body += std::string("\nAction: Delete Folder.\nCurrent File: @/source/") + folder +
                "\nDestination File: @/source/" + folder + "\n";
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
    const RunResult run = Run({Entry(kAll)});
    EXPECT_EQ(run.log, Log(R"(
Action: Copying File.
ERROR: Permission denied

Current File: @/source/a.txt
Destination File: @/dest/a.txt
File Size: 1 KB
)",
                           {.total = "1", .error = 1}));
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"a.txt=mine"}));
    EXPECT_EQ(Run({Entry(kAll | DCF_OVERWRITE_RO)}).counters, "copy 1");
    EXPECT_EQ(ContentOf(Path("@/dest/a.txt")), "a");
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
