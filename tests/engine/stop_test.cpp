// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests where a run notices a stop and Stop Counting, and the state that they leave.

#include <thread>

#include "engine/run_fixture.h"

namespace quorbit {
namespace {

using namespace testing;

class StopTest : public RunFixture {
protected:
    StopTest() { Write({"source/a=1", "source/b=2", "source/c=3", "dest/"}); }

    static Prepare SetBefore(std::atomic<int>& flag, Call call, int number)
    {
        return [&flag, call, number](FailingFileSystem& disk) {
            disk.RunBefore(call, number, [&flag] { flag = 1; });
        };
    }
};

TEST_F(StopTest, AStopInTheCountTouchesNothingAndSaysNothing)
{
    const RunResult run = Run({Entry(kTree)}, SetBefore(g_bStopRun, Call::Next, 2));
    EXPECT_EQ(run.log, Log("", {}));
    EXPECT_EQ(run.counters, "left 1");
    EXPECT_TRUE(run.surface.messages.empty());
    EXPECT_THAT(run.surface.phases, ElementsAre("counting", "finishing", "ended"));
    EXPECT_EQ(Tree("@/dest"), TreeLines{});
}

TEST_F(StopTest, AStopBeforeTheRunLeavesAFooterOnly)
{
    g_bStopRun = 1;
    EXPECT_EQ(Run({Entry(kTree)}).log, Footer({}));
}

TEST_F(StopTest, TheFileUnderWorkIsFinished)
{
    const RunResult run = Run({Entry(kTree), Entry(kTree, "@/source", "@/other")},
                              SetBefore(g_bStopRun, Call::CopyFile, 2));
    EXPECT_EQ(run.counters, "left 5 copy 2");  // the unit of the last file is not subtracted
    EXPECT_EQ(Tree("@/dest").size(), 2U);
    EXPECT_FALSE(std::filesystem::exists(Path("@/other")));
    EXPECT_THAT(run.log, HasSubstr("Action: Copying File.\r\n\r\n**** Stopped by user. ****\r\n" +
                                   Footer({.total = "6", .copy = 2})));
    EXPECT_EQ(run.exitCode, 0);
}

TEST_F(StopTest, AStopBetweenFilesStartsNoOther)
{
    const std::tuple<Call, int, const char*> cases[] = {
        {Call::OpenFolder, 2, "left 3"},       // between the passes
        {Call::OpenSource, 1, "left 3"},       // before the first file is opened
        {Call::Probe, 3, "left 2 copy 1"},     // while the second destination is checked
        {Call::CopyFile, 2, "left 2 copy 2"},  // after the last check: it is copied
    };
    for (const auto& [call, number, counters] : cases) {
        std::filesystem::remove_all(Path("@/dest"));
        Write({"dest/"});
        const RunResult run = Run({Entry(kAll)}, SetBefore(g_bStopRun, call, number));
        EXPECT_EQ(run.counters, counters) << static_cast<int>(call);
        EXPECT_THAT(run.log, HasSubstr("Stopped by user."));
    }
}

TEST_F(StopTest, IsSeenWhileFilesArePassedOver)
{
    // The count pass reads three files and the end of the listing (Next 1 to 4). The process pass
    // is stopped at its first file.
    const RunResult run =
        Run({Entry(DCF_NO_ATTRS, "@/source", "@/dest", {"none"})}, [&](FailingFileSystem& disk) {
            disk.RunBefore(Call::Next, 5, [] { g_bStopRun = 1; });
            disk.RunBefore(Call::Next, 6, [] { ADD_FAILURE(); });
        });
    EXPECT_THAT(run.log, HasSubstr("Stopped by user."));
}

TEST_F(StopTest, AStopInADeletionStillTriesTheFoldersOnTheWayUp)
{
    Write({"source/sub/x=1"});
    const RunResult run = Run({Entry(kAll | DCF_DELETE | DCF_DELETE_FOLDER, "@/source/sub")},
                              SetBefore(g_bStopRun, Call::Next, 1));
    EXPECT_EQ(run.counters, "delete 1 error 1");
    EXPECT_EQ(ContentOf(Path("@/source/sub/x")), "1");
    EXPECT_THAT(run.log, HasSubstr("ERROR: Directory not empty\r\n\r\n\r\n**** Stopped by user."));
}

TEST_F(StopTest, StopCountingGivesTheSumAsTotal)
{
    const std::vector<CDirCopy> entries{Entry(kAll), Entry(kAll | DCF_SYNC),
                                        Entry(kAll | DCF_DELETE)};
    const RunResult run = Run(entries, SetBefore(g_bStopCounting, Call::Next, 3));
    EXPECT_THAT(run.log,
                HasSubstr(Footer({.total = "9", .deleted = 3, .didntSync = 3, .copy = 3})));
    EXPECT_EQ(run.counters, "copy 3 didn't sync 3 delete 3");
    EXPECT_THAT(run.surface.texts,
                IsSupersetOf({std::pair(RunText::TotalCount, std::string("Unknown")),
                              std::pair(RunText::TotalCount, std::string("9"))}));
    EXPECT_THAT(run.surface.phases, ElementsAre("counting", "processing 0", "finishing", "ended"));
}

TEST_F(StopTest, StopCountingLeavesBackupsOutAndKeepsACountThatWasReached)
{
    Write({"dest/a=old"});
    SetModified(Path("@/dest/a"), 1000);
    // Next 4 is the end of the listing, so the walk is complete.
    const RunResult run =
        Run({Entry(kAll | DCF_INCREMENTAL)}, SetBefore(g_bStopCounting, Call::Next, 4));
    EXPECT_EQ(run.counters, "left 3 copy 2 backup 1");
    EXPECT_THAT(run.log, HasSubstr(Footer({.total = "2", .copy = 2, .backup = 1})));
}

TEST_F(StopTest, WhatLanesMadeReadyVanishes)
{
    m_nLanes = 16;
    m_bSyncAtEnd = true;
    for (int i = 0; i < 300; ++i) {
        Write({"many/f" + std::to_string(i) + "=x"});
    }
    for (const int number : {1, 2, 40, 200}) {
        std::filesystem::remove_all(Path("@/dest"));
        const RunResult run =
            Run({Entry(kAll, "@/many")}, SetBefore(g_bStopRun, Call::Place, number));
        EXPECT_THAT(run.counters, EndsWith(" copy " + std::to_string(number)));
        EXPECT_EQ(Tree("@/dest").size(), static_cast<std::size_t>(number));
    }
}

TEST_F(StopTest, EntriesAreCountedAndProcessedInTheirOrder)
{
    Write({"one/a=1", "two/b=2"});
    const RunResult run = Run({Entry(kAll, "@/one"), Entry(kAll, "@/two"),
                               Entry(kAll | DCF_DELETE | DCF_DELETE_FOLDER, "@/one")});
    EXPECT_THAT(run.surface.counters.at(RunCounter::FilesLeft), ElementsAre(1, 2, 3, 2, 1, 0));
    EXPECT_THAT(run.surface.phases, ElementsAre("counting", "processing 3", "finishing", "ended"));
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"a=1", "b=2"}));
    EXPECT_FALSE(std::filesystem::exists(Path("@/one")));
    EXPECT_THAT(run.log, Not(HasSubstr("ERROR:")));
}

TEST_F(StopTest, AnotherThreadMayStopARunAtAnyTime)
{
    std::atomic<bool> copying = false;
    const std::jthread other([&](const std::stop_token& end) {
        while (!copying && !end.stop_requested()) {
            std::this_thread::yield();
        }
        g_bStopCounting = 1;
        g_bStopRun = 1;
    });
    const std::vector<CDirCopy> entries(22'000, Entry(kAll | DCF_SYNC));
    const RunResult run = Run(entries, [&](FailingFileSystem& disk) {
        disk.RunBefore(Call::CopyFile, 1, [&] { copying = true; });
    });
    EXPECT_THAT(run.log, HasSubstr("Stopped by user."));
    EXPECT_THAT(run.log, HasSubstr("Total Count: 66000\r\n"));
    EXPECT_THAT(run.surface.phases, Contains("processing 66000"));
}

}  // namespace
}  // namespace quorbit
