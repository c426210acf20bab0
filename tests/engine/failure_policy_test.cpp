// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests when errors show a prompt and when they end the run.

#include "engine/run_fixture.h"

namespace quorbit {
namespace {

using namespace std::chrono_literals;
using namespace testing;
using Box = RecordingSurface::Box;

constexpr std::uint32_t kDelete = kAll | DCF_DELETE;
constexpr const char* kStoppedByUser = "\r\n\r\n**** Stopped by user. ****\r\n\r\n\r\nElapsed time";
constexpr const char* kErrorMaximum =
    "\r\n***** Error maximum was reached *****\r\n\r\n\r\nElapsed time";

class FailurePolicyTest : public RunFixture {
protected:
    FailurePolicyTest() { Write({"source/"}); }

    // Runs a deletion of this many files that cannot be deleted.
    RunResult FailingRun(int files)
    {
        for (int i = 0; i < files; ++i) {
            Write({"source/" + std::to_string(i) + "=x"});
        }
        return Run({Entry(kDelete)}, [](FailingFileSystem& disk) {
            disk.FailAlways(Call::DeleteFile, Error(ErrorKind::Busy));
        });
    }
    const Box m_prompt{"Device or resource busy\r\n  Do you want to CANCEL file processing?",
                       "Error"};
};

TEST_F(FailurePolicyTest, PromptsOnlyWhereThatIsAllowed)
{
    const std::tuple<std::uint32_t, std::uint32_t, std::size_t, int, bool> cases[] = {
        {0, 0, 2, 0, false},
        {0, 1, 0, 0, false},
        {0, 2, 2, 0, false},  // another option
        {kRunAndQuit, 0, 2, 1, true},
        {kRunAndQuit, 1, 0, 1, true},
        {kRunAndStayOpen, 0, 2, 0, false},  // the dialog sets the code when it closes
        {kRunInvisible, 0, 0, 1, true},
        {kRunInvisible | kRunAndQuit, 0, 0, 1, true}};
    for (const auto& [mode, options, prompts, exitCode, closes] : cases) {
        SCOPED_TRACE(Message() << "mode " << mode << ", options " << options);
        m_nRunMode = mode;
        m_nOptFlags = options;
        const RunResult run = FailingRun(2);
        EXPECT_EQ(run.surface.prompts, std::vector<Box>(prompts, m_prompt));
        EXPECT_TRUE(run.surface.messages.empty());
        EXPECT_EQ(run.counters, "error 2");
        EXPECT_THAT(run.surface.errors,
                    ElementsAre("Device or resource busy", "Device or resource busy"));
        EXPECT_EQ(run.exitCode, exitCode);
        EXPECT_EQ(run.surface.phases.back(), closes ? "closed" : "ended");
    }
}

TEST_F(FailurePolicyTest, EveryErrorIsKeptWithItsEntryAndItsFiles)
{
    Write({"source/a=x", "gone/sub/x=1"});
    const RunResult run =
        Run({Entry(kAll), Entry(kAll, "@/none"), Entry(kDelete | DCF_DELETE_FOLDER, "@/gone", "")},
            [](FailingFileSystem& disk) {
                disk.FailAlways(Call::CopyFile, Error(ErrorKind::DiskFull));
                disk.FailAt(Call::DeleteFile, 1, Error(ErrorKind::Busy));
                disk.FailAlways(Call::RemoveFolder, Error(ErrorKind::NotEmpty));
            });
    const std::tuple<std::size_t, RunOperation, const char*, const char*, ErrorKind> expected[] = {
        {0, RunOperation::Copy, "@/source/a", "@/dest/a", ErrorKind::DiskFull},
        {1, RunOperation::ListFolder, "@/none/", "", ErrorKind::Missing},
        {2, RunOperation::DeleteFile, "@/gone/sub/x", "", ErrorKind::Busy},
        {2, RunOperation::DeleteFolder, "@/gone/sub/", "", ErrorKind::NotEmpty},
        {2, RunOperation::DeleteFolder, "@/gone/", "", ErrorKind::NotEmpty}};
    ASSERT_EQ(run.problems.Kept().size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const RunProblem& problem = run.problems.Kept()[i];
        const auto& [entry, operation, source, destination, kind] = expected[i];
        EXPECT_EQ(problem.severity, ProblemSeverity::Error);
        EXPECT_EQ(problem.entry, entry);
        EXPECT_EQ(problem.subject.operation, operation);
        EXPECT_EQ(problem.subject.source, Path(source));
        EXPECT_EQ(problem.subject.destination, Path(destination));
        EXPECT_EQ(problem.kind, kind);
    }
}

TEST_F(FailurePolicyTest, YesStopsTheRun)
{
    m_nRunMode = kRunAndQuit;
    m_answers = {false, true};
    const RunResult run = FailingRun(4);
    EXPECT_EQ(run.surface.prompts, (std::vector<Box>{m_prompt, m_prompt}));
    EXPECT_EQ(run.counters, "left 3 error 2");
    EXPECT_THAT(
        run.surface.messages,
        ElementsAre(Box{"Process canceled by user.  Hit OK to continue.", "Process stopped."}));
    EXPECT_EQ(run.exitCode, 1);
    // The error is logged, but the lines of its file are not: the run stops first.
    EXPECT_THAT(run.log,
                HasSubstr("ERROR: Device or resource busy\r\n" + std::string(kStoppedByUser)));
}

TEST_F(FailurePolicyTest, WhileAPromptIsOpenTheClockStandsStillAndTheLinesBeforeItAreInTheFile)
{
    std::string log;
    m_onPrompt = [&] {
        log = LogSoFar();
        s_now += 1h;
    };
    EXPECT_THAT(FailingRun(1).log, HasSubstr("Elapsed time: 0:0:0\r\n"));
    EXPECT_THAT(log, EndsWith("\r\nAction: Delete File.\r\n"));
    // The box for an invalid source does not pause the clock.
    EXPECT_THAT(Run({Entry(kAll), Entry(kAll, "@/none")}).log,
                HasSubstr("Elapsed time: 1:0:0\r\n"));
    EXPECT_THAT(log, EndsWith("Destination File: " + Path("@/dest/0") + "\r\nFile Size: 1 KB\r\n"));
}

TEST_F(FailurePolicyTest, AnInvalidSourceAsksUnlessSuppressedOrInvisible)
{
    Write({"source/a=1", "dest/"});
    const Box prompt{
        Path("Source path is invalid. @/none/  Do you want to CANCEL file processing?"), ""};
    const std::tuple<std::uint32_t, std::uint32_t, bool, bool> cases[] = {
        {0, 0, false, true},
        {0, 0, true, true},
        {0, 1, true, false},
        {kRunInvisible, 0, true, false}};
    for (const auto& [mode, options, yes, asked] : cases) {
        m_nRunMode = mode;
        m_nOptFlags = options;
        m_answers = {yes};
        const RunResult run = Run({Entry(kAll, "@/none"), Entry(kAll)});
        EXPECT_EQ(run.surface.prompts, std::vector<Box>(asked ? 1 : 0, prompt));
        const bool stopped = asked && yes;
        EXPECT_EQ(run.counters, stopped ? "left 1 error 1" : "copy 1 error 1");
        EXPECT_THAT(run.log,
                    HasSubstr(Path("ERROR: Source path is invalid.   Path not found:  @/none/: "
                                   "No such file or directory\r\n\r\n") +
                              std::string(stopped ? "**** Stopped" : "Action: Copying")));
    }
}

TEST_F(FailurePolicyTest, AnInvisibleRunStopsAtItsSixthError)
{
    m_nRunMode = kRunInvisible;
    EXPECT_EQ(Run({Entry(kTree)}).exitCode, 0);
    const RunResult five = FailingRun(5);
    EXPECT_EQ(five.counters, "error 5");
    EXPECT_THAT(five.log, Not(HasSubstr("Error maximum")));
    const RunResult run = FailingRun(8);
    EXPECT_EQ(run.counters, "left 3 error 6");
    EXPECT_THAT(run.log, HasSubstr(kErrorMaximum));
    EXPECT_THAT(run.log, EndsWith("Error Count: 6\r\n"));
    EXPECT_TRUE(run.surface.messages.empty());
    EXPECT_EQ(run.exitCode, 1);
    m_nRunMode = kRunAndQuit;
    EXPECT_EQ(FailingRun(8).counters, "error 8");
}

TEST_F(FailurePolicyTest, ItemsThatTheDestinationCannotHoldDoNotEndTheRun)
{
    m_nRunMode = kRunInvisible;
    Write({"source/a->x", "source/b->x", "source/c|", "source/d->x", "source/e->x", "source/f->x",
           "dest/f=old"});
    SetModified(Path("@/dest/f"), 1000);
    for (const std::uint32_t flags : {std::uint32_t{0}, DCF_SYNC + 0U, DCF_INCREMENTAL + 0U}) {
        const RunResult run = Run({Entry(kAll | flags)}, [](FailingFileSystem& disk) {
            disk.FailAlways(Call::CopyFile, Error(ErrorKind::ItemNotSupported));
        });
        EXPECT_EQ(run.counters, "");
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.surface.warnings.size(), 6U);
        EXPECT_EQ(Tree("@/dest"), (TreeLines{"f=old"}));
    }
}

TEST_F(FailurePolicyTest, InvalidSourcesAloneDoNotReachTheMaximum)
{
    m_nRunMode = kRunInvisible;
    std::vector<CDirCopy> entries(7, Entry(kAll, "@/none"));
    const RunResult run = Run(entries);
    EXPECT_EQ(run.counters, "error 7");
    EXPECT_THAT(run.log, Not(HasSubstr("Error maximum")));

    Write({"source/a=x"});
    entries.push_back(Entry(kDelete));
    entries.push_back(Entry(kAll, "@/none"));
    const RunResult stopped = Run(entries, [](FailingFileSystem& disk) {
        disk.FailAlways(Call::DeleteFile, Error(ErrorKind::Busy));
    });
    EXPECT_EQ(stopped.counters, "left 1 error 8");
    EXPECT_THAT(stopped.log, HasSubstr(kErrorMaximum));
}

TEST_F(FailurePolicyTest, ADiskThatCannotBeSyncedIsAnErrorBeforeTheFooter)
{
    const auto failing = [](FailingFileSystem& disk) {
        disk.FailAlways(Call::SyncWritten, Error(ErrorKind::Other));
    };
    m_bSyncAtEnd = true;
    Write({"source/a=x", "dest/"});
    const RunResult run = Run({Entry(kAll)}, failing);
    EXPECT_THAT(run.log, EndsWith("File Size: 1 KB\r\nERROR: Input/output error\r\n\r\n" +
                                  Footer({.total = "1", .copy = 1, .error = 1})));
    m_bSyncAtEnd = false;
    EXPECT_EQ(Run({Entry(kAll)}, failing).counters, "copy 1");
}

}  // namespace
}  // namespace quorbit
