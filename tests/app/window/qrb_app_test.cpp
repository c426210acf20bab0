// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/qrb_app.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <filesystem>

#include "app/window/app_test.h"
#include "engine/run_context.h"

namespace quorbit {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

class QrbAppTest : public AppTest {
protected:
    [[nodiscard]] std::string Log(const std::string& name) const
    {
        return ContentOf(Path("state/quorbit/" + name + ".log"));
    }
    static void CloseRunDialogAtItsEnd()
    {
        InNextDialog([](QDialog& dialog) { dialog.reject(); },
                     [](QDialog& dialog) {
                         const auto* cancel =
                             dialog.findChild<QPushButton*>(QStringLiteral("m_btnCancel"));
                         return cancel != nullptr && cancel->text() == QStringLiteral("OK");
                     });
    }
};

TEST_F(QrbAppTest, EndsWithZeroAfterAFatalMessage)
{
    Write({"config/quorbit/machine.ini=damaged"});
    Make();
    EXPECT_EQ(Live(), 0);
    EXPECT_EQ(prompts.asked, Lines{kRegistryMessage});
    EXPECT_EQ(prompts.boxes[0].icon, PromptIcon::Stop);
    EXPECT_EQ(app->MainFrame(), nullptr);
}

TEST_F(QrbAppTest, StartsNoRunByItselfWithoutASwitch)
{
    SetUpProgram();
    Write({"from/a.txt=a"});
    WriteBatch("a.qrb");
    Start(0, Path("a.qrb"));
    Serve();
    EXPECT_EQ(Log("a"), "(none)");
    EXPECT_EQ(RecentFiles(profile).List(), Lines{Path("a.qrb")});

    CloseRunDialogAtItsEnd();
    EXPECT_TRUE(Frame().OnCmdMsg(CMD_START_BATCH));
    EXPECT_EQ(ContentOf(Path("to/a.txt")), "a");
    Serve();
    EXPECT_FALSE(ended) << "the program goes on after a run that a person started";
    EXPECT_EQ(app->ExitInstance(0), 0);

    EXPECT_TRUE(Frame().OnCmdMsg(CMD_LOG_FILE));
    EXPECT_EQ(editor.opened, Lines{Path("state/quorbit/a.log")});
}

TEST_F(QrbAppTest, EndsWithZeroIfTheLogCannotBeCreatedAndSavesChangesBefore)
{
    SetUpProgram();
    WriteBatch("a.qrb");
    Start(0, Path("a.qrb"));
    Doc().m_arrEntries[0].m_strDest = "/changed";
    Doc().SetModifiedFlag();
    fs::remove_all(Path("state"));
    Write({"state=no folder"});
    prompts.answers = {PromptAnswer::Ok, PromptAnswer::Yes};

    Frame().PostCommand(CMD_START_BATCH);
    EXPECT_EQ(app->ExitInstance(QApplication::exec()), 0);

    ASSERT_EQ(prompts.asked.size(), 2U);
    EXPECT_TRUE(prompts.asked[0].starts_with("The log file cannot be created: "));
    EXPECT_EQ(prompts.asked[1], "Save changes to " + Path("a.qrb") + "?");
    Batch file;
    ASSERT_TRUE(ReadBatchFile(Path("a.qrb"), file));
    EXPECT_EQ(file.m_arrEntries[0].m_strDest, "/changed");
}

TEST_F(QrbAppTest, StaysOpenUntilItIsKnownWhatBecomesOfChanges)
{
    SetUpProgram();
    WriteBatch("a.qrb");
    Start(0, Path("a.qrb"));
    Doc().SetModifiedFlag();

    prompts.answers = {PromptAnswer::Cancel};
    EXPECT_TRUE(Frame().OnCmdMsg(CMD_EXIT));
    EXPECT_FALSE(ended);
    EXPECT_TRUE(Frame().isVisible());

    prompts.answers = {PromptAnswer::No};
    EXPECT_TRUE(Frame().OnCmdMsg(CMD_EXIT));
    EXPECT_EQ(ended, 0);
    EXPECT_EQ(prompts.asked, (Lines{"Save changes to " + Path("a.qrb") + "?",
                                    "Save changes to " + Path("a.qrb") + "?"}));
}

TEST_F(QrbAppTest, StaysOpenWhileARunIsOn)
{
    SetUpProgram();
    WriteBatch("a.qrb", "none");
    Start(0, Path("a.qrb"));
    bool visible = false;
    prompts.whileOpen = [&] {
        Frame().close();
        Serve();
        visible = Frame().isVisible();
    };
    CloseRunDialogAtItsEnd();
    EXPECT_TRUE(Frame().OnCmdMsg(CMD_START_BATCH));
    EXPECT_TRUE(visible);
    EXPECT_FALSE(ended);
}

TEST_F(QrbAppTest, ClosesDialogsAndWindowWhenASignalAsks)
{
    SetUpProgram();
    Start();
    InNextDialog([this](QDialog&) { app->OnStopSignal(StopSignal::Terminate); });
    QTimer::singleShot(0, qApp, [this] { Frame().OnCmdMsg(CMD_ABOUT); });
    EXPECT_EQ(app->ExitInstance(QApplication::exec()), 0);
    EXPECT_FALSE(Frame().isVisible());
}

TEST_F(QrbAppTest, OpensFilesInTheFolderUsedLastAndNeverInThatOfTheLogs)
{
    SetUpProgram();
    const ScopedVariable home("HOME", Path("home"));
    Write({"home/", "set/", "used/", "state/quorbit/"});
    WriteBatch("used/a.qrb");
    WriteBatch("state/quorbit/b.qrb");
    Start();
    const auto folder = [this] {
        Frame().OnCmdMsg(CMD_FILE_OPEN);
        return prompts.fileQuestions.back().folder;
    };
    EXPECT_EQ(folder(), Path("home"));
    profile.WriteProfileString(Setting::QrbFilePath, Path("state/quorbit/"));
    EXPECT_EQ(folder(), Path("home"));
    profile.WriteProfileString(Setting::QrbFilePath, Path("set"));
    EXPECT_EQ(folder(), Path("set"));
    EXPECT_TRUE(app->Files().OpenDocumentFile(Path("used/a.qrb")));
    EXPECT_TRUE(app->Files().OpenDocumentFile(Path("state/quorbit/b.qrb")));
    EXPECT_EQ(folder(), Path("used"));
}

TEST_F(QrbAppTest, RestoresTheStoredHeightOfTheTree)
{
    SetUpProgram();
    profile.WriteProfileInts({{Setting::FrameSizeX, 700}, {Setting::FrameSizeY, 900}});
    for (const auto& [stored, height] :
         {std::pair(30, 200), std::pair(120, 120), std::pair(300, 300)}) {
        profile.WriteProfileInts(
            {{Setting::DriveViewSizeX, 300}, {Setting::DriveViewSizeY, stored}});
        Start();
        Serve();
        const auto* tree = app->Document().GetView(ViewKind::DriveTree);
        EXPECT_EQ(dynamic_cast<const QWidget*>(tree)->height(), height) << stored;
        app.reset();
    }
}

TEST_F(QrbAppTest, EndsAtTheSecondSignalWhileItAsksAboutChanges)
{
    SetUpProgram();
    Start();
    Doc().SetModifiedFlag();
    prompts.whileOpen = [this] {
        EXPECT_FALSE(ended) << "the first signal leaves the question to the user";
        app->OnStopSignal(StopSignal::Terminate);
        Serve();
    };
    app->OnStopSignal(StopSignal::Terminate);
    Serve();
    EXPECT_EQ(prompts.asked, Lines{"Save changes to Untitled?"}) << "asked once";
    EXPECT_EQ(ended, 0);

    ended.reset();
    prompts.whileOpen = [this] {
        app->OnStopSignal(StopSignal::Terminate);
        EXPECT_FALSE(ended) << "the user has opened the question";
    };
    Frame().close();
    EXPECT_FALSE(ended);
}

TEST_F(QrbAppTest, StopsARunWhenASignalAsksAndAnswersItsBoxes)
{
    SetUpProgram();
    WriteBatch("a.qrb", "none");
    Make(kRunAndQuit, Path("a.qrb"));
    // The signal arrives while the box for the error is open and unanswered.
    prompts.whileOpen = [this] { app->OnStopSignal(StopSignal::Terminate); };
    EXPECT_EQ(Live(), 1);
    EXPECT_EQ(prompts.asked.size(), 1U) << "the box at the end of a stopped run stays away";
    EXPECT_NE(Log("a").find("**** Stopped by user. ****"), std::string::npos) << Log("a");
}

TEST_F(QrbAppTest, EndsIfItCannotBeToldWhereTheLastLogLies)
{
    SetUpProgram();
    Start();
    EXPECT_TRUE(Frame().OnCmdMsg(CMD_LOG_FILE));
    EXPECT_EQ(prompts.asked, Lines{}) << "the editor tells that there is none yet";
    ASSERT_TRUE(stores.machine.Write({{"1.00", "Log File", std::string(4096, 'x')}}));
    Frame().PostCommand(CMD_LOG_FILE);
    EXPECT_EQ(app->ExitInstance(QApplication::exec()), 0);
    EXPECT_EQ(prompts.asked, Lines{kRegistryMessage});
}

}  // namespace
}  // namespace quorbit
