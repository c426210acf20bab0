// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests the start and the end of a run in the dialog, and the calls to the program at its end.

#include <QCoreApplication>
#include <filesystem>

#include "engine/dialog/dialog_test.h"
#include "engine/run_context.h"
#include "engine/run_flags.h"

namespace quorbit {
namespace {

class ProgressDialogEndTest : public DialogTest {
protected:
    // True if no run has the log locked. Empties the log.
    [[nodiscard]] bool LogIsFree() const { return CreateLogOutput(m_strLog).Ok(); }
};

TEST_F(ProgressDialogEndTest, EveryModeEndsInItsOwnWay)
{
    const struct {
        std::uint32_t mode;
        std::uint32_t optFlags;
        bool fails;
        bool closesItself;
        Lines told;
    } cases[] = {{0, 1, true, false, {}},
                 {0, 3, false, false, {"refresh"}},
                 {kRunAndQuit, 3, false, true, {"exit"}},
                 {kRunAndQuit, 3, true, true, {"exit code 1", "exit"}},
                 {kRunAndStayOpen, 3, false, false, {"exit"}},
                 {kRunAndStayOpen, 3, true, false, {"exit code 1", "exit"}}};
    Write({"from/a.txt=a"});
    AddCopy();
    for (const auto& c : cases) {
        SCOPED_TRACE("mode " + std::to_string(c.mode) + (c.fails ? " with an error" : ""));
        m_told.clear();
        m_services.run.nRunMode = c.mode;
        m_services.run.readOptFlags = [&c] { return c.optFlags; };
        if (c.fails) {
            FailCopy(m_files.Count(FileSystemCall::CopyFile) + 1);
        }
        Open();
        UntilEnded();
        if (!c.closesItself) {
            EXPECT_EQ(m_told, Lines{});
            Click("m_btnCancel");
        }
        UntilClosed();
        EXPECT_EQ(m_told, c.told);
        m_pDialog.reset();
        EXPECT_EQ(g_bStopRun + g_bStopCounting + g_bRunStarted, 0);
    }
    EXPECT_TRUE(m_prompts.boxes.empty());
}

TEST_F(ProgressDialogEndTest, AnEmptyDocumentIsToldAndEndsAsAnyRun)
{
    m_services.run.nRunMode = kRunAndQuit;
    Open();
    UntilClosed();
    EXPECT_EQ(
        m_prompts.boxes,
        Boxes({{"The Batch File is empty.", "", PromptIcon::Exclamation, PromptButtons::Ok}}));
    EXPECT_TRUE(Log().starts_with("\r\n\r\nElapsed time: 0:0:0\r\nTotal Count: 0\r\n"));
    EXPECT_EQ(m_told, Lines{"exit"});
}

TEST_F(ProgressDialogEndTest, WithoutALogNothingIsRun)
{
    const std::string cannot =
        "The log file cannot be created: " + Path("file/nightly.log") + ": Not a directory";
    const std::string inUse =
        "This batch file is being run already. Its log file is in use by that run: " + m_strLog;
    const struct {
        const char* logFolder;
        std::uint32_t mode;
        std::string text;
        Lines told;
    } cases[] = {{"file/", 0, cannot, {"end 0"}},
                 {"file/", kRunAndQuit, cannot, {"end 0"}},
                 {"logs/", 0, inUse, {}},
                 {"logs/", kRunAndQuit, inUse, {"end 2"}}};
    Write({"from/a.txt=a", "file=no folder"});
    AddCopy();
    const auto otherRun = CreateLogOutput(m_strLog);
    for (const auto& c : cases) {
        m_told.clear();
        m_prompts.boxes.clear();
        m_services.run.nRunMode = c.mode;
        m_machine.SetLogFolder(Path(c.logFolder));
        Open();
        UntilClosed();
        EXPECT_EQ(m_prompts.boxes, Boxes({{c.text, "", PromptIcon::Stop, PromptButtons::Ok}}));
        EXPECT_EQ(m_told, c.told);
        EXPECT_EQ(m_files.Count(FileSystemCall::OpenFolder), 0);
        m_pDialog.reset();
        EXPECT_EQ(g_bRunStarted, 0);
    }
}

TEST_F(ProgressDialogEndTest, ALogThatCannotBeWrittenIsToldAndTheRunGoesOn)
{
    Write({"from/a.txt=a", "from/b.txt=b"});
    AddCopy();
    std::filesystem::create_symlink("/dev/full", m_strLog);
    RunAndClose();
    ASSERT_FALSE(m_prompts.boxes.empty());
    EXPECT_EQ(m_prompts.boxes.front().text, "Error writing to the logfile.");
    EXPECT_EQ(m_prompts.boxes.front().icon, PromptIcon::Stop);
    EXPECT_EQ(Text("m_stcCopyCount"), "2");
}

// The last steps of a stopped run: it shows its box, closes the log and sets the exit code.
TEST_F(ProgressDialogEndTest, ClosingInTheLastStepsOfTheWorkerIsSafe)
{
    Write({"from/a.txt=a", "from/b.txt=b"});
    AddCopy();
    m_services.run.nRunMode = kRunAndStayOpen;
    constexpr int kRounds = 100;
    for (int round = 0; round < kRounds; ++round) {
        const bool stopped = round % 2 == 1;
        m_prompts.answer = PromptAnswer::Yes;
        if (stopped) {
            FailCopy(m_files.Count(FileSystemCall::CopyFile) + 1);
        }
        m_prompts.boxes.clear();
        m_told.clear();
        Open();
        ASSERT_TRUE(Until([this] { return g_bStopRun != 0; }));
        ASSERT_TRUE(Until([this] {
            m_pDialog->reject();  // repeat, to close as early as possible
            return !m_pDialog->isVisible();
        }));
        EXPECT_EQ(m_prompts.boxes.size(), stopped ? 2U : 0U);
        EXPECT_EQ(m_told, stopped ? (Lines{"exit code 1", "exit"}) : Lines{"exit"});
        EXPECT_TRUE(LogIsFree());
        m_pDialog.reset();
    }
}

TEST_F(ProgressDialogEndTest, AWindowThatIsDestroyedTakesItsRunAlong)
{
    Write({"from/a.txt=a", "from/b.txt=b"});
    AddCopy();
    FailCopy(1);
    m_prompts.whileOpen = [this] { m_pDialog.reset(); };
    Open();
    ASSERT_TRUE(Until([this] { return !m_pDialog; }));
    EXPECT_EQ(m_prompts.boxes.size(), 1U);
    EXPECT_TRUE(LogIsFree());
    EXPECT_EQ(g_bStopRun + g_bRunStarted, 0);
    EXPECT_EQ(m_files.Count(FileSystemCall::CopyFile), 1);
}

TEST_F(ProgressDialogEndTest, AWindowClosedBeforeItsRunBeganRunsNothing)
{
    AddCopy();
    Open();
    m_pDialog->reject();
    EXPECT_FALSE(m_pDialog->isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(g_bRunStarted, 0);
    EXPECT_EQ(m_files.Count(FileSystemCall::OpenFolder), 0);
}

}  // namespace
}  // namespace quorbit
