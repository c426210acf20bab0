// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/qrb_app.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <QWhatsThis>
#include <filesystem>
#include <thread>

#include "app/window/about_dialog.h"
#include "app/window/app_test.h"
#include "engine/run_context.h"

namespace quorbit {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

class QrbAppTest : public AppTest {
protected:
    [[nodiscard]] std::string FirstRunMark() const
    {
        return *stores.machine.ReadText("1.00", "Run1");
    }
    [[nodiscard]] std::string Log(const std::string& name) const
    {
        return ContentOf(Path("state/quorbit/" + name + ".log"));
    }
    // The page that the help shows; empty if it was not opened.
    [[nodiscard]] std::string HelpPage()
    {
        HelpWindow* help = app->Help()->Window();
        return help == nullptr || !help->isVisible()
                   ? ""
                   : help->findChild<QTextBrowser*>()->source().toString().toStdString();
    }
    // Does something with the dialog on the screen as soon as it is ready for it.
    void WhenDialog(std::function<bool(QDialog&)> ready, std::function<void(QDialog&)> action)
    {
        auto* timer = new QTimer(qApp);
        QObject::connect(timer, &QTimer::timeout, [timer, ready, action] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog != nullptr && ready(*dialog)) {
                timer->deleteLater();
                timer->stop();
                action(*dialog);
            }
        });
        timer->start(10);
    }
    void CloseRunDialogAtItsEnd()
    {
        WhenDialog(
            [](QDialog& dialog) {
                auto* cancel = dialog.findChild<QPushButton*>(QStringLiteral("m_btnCancel"));
                return cancel != nullptr && cancel->text() == QStringLiteral("OK");
            },
            [](QDialog& dialog) { dialog.reject(); });
    }
};

// --- the first start
// ------------------------------------------------------------------------------

TEST_F(QrbAppTest, OpensTheFileButDropsTheSwitchesOnTheFirstStart)
{
    WriteBatch("a.qrb");
    Start(kRunAndQuit, Path("a.qrb"));
    Serve();
    EXPECT_EQ(prompts.asked,
              Lines{"Command line options don't work if you are running for the first time.  Just "
                    "run again and they will work."});
    EXPECT_TRUE(app->m_bFirstRun);
    EXPECT_EQ(app->m_nRunMode, 0U);
    EXPECT_FALSE(Frame().isMinimized());
    EXPECT_EQ(Title(), "QRB " + Path("a.qrb"));
    EXPECT_EQ(FirstRunMark(), "0");
    EXPECT_EQ(Log("a"), "(none)");
    EXPECT_FALSE(ended);
}

TEST_F(QrbAppTest, OpensTheHelpOnTheFirstStartOnly)
{
    WriteTree(folder.Path(), {"data/quorbit/help/index.html=help"});
    Start();
    EXPECT_EQ(HelpPage(), "file://" + Path("data/quorbit/help/index.html"));
    Start();
    EXPECT_FALSE(app->m_bFirstRun);
    EXPECT_EQ(HelpPage(), "");
    fs::remove(Path("data/quorbit/help/index.html"));
    Start();
    EXPECT_TRUE(Frame().OnCmdMsg(CMD_HELP_TOPICS));
    EXPECT_EQ(HelpPage(), "qrc:/help/index.html") << "the built-in one, without a word";
    EXPECT_TRUE(prompts.asked.empty());
}

TEST_F(QrbAppTest, HelpCommandsOpenTheContentsAndF1ThePageOfThePane)
{
    SetUpProgram();
    Start();
    struct Case {
        int nId;
        const char* pane;
        std::string page;
    };
    for (const Case& c : {Case{CMD_HELP, "Entries", "window.html#entries"},
                          Case{CMD_HELP, "Drives and folders", "window.html#tree"},
                          Case{CMD_HELP_TOPICS, "Entries", "index.html"},
                          Case{CMD_HELP, "Files", "window.html#files"},
                          Case{CMD_HELP_DEFAULT, "Files", "index.html"},
                          Case{CMD_HELP_INDEX, "Files", "index.html"}}) {
        for (QWidget* pane : Frame().findChildren<QAbstractItemView*>()) {
            if (pane->accessibleName() == QLatin1String(c.pane)) {
                Frame().activateWindow();
                ASSERT_TRUE(QTest::qWaitForWindowActive(&Frame()));
                pane->setFocus();
            }
        }
        EXPECT_TRUE(Frame().OnCmdMsg(c.nId));
        EXPECT_EQ(HelpPage(), "qrc:/help/" + c.page) << c.nId << " " << c.pane;
    }
}

TEST_F(QrbAppTest, ContextHelpWaitsForAClick)
{
    SetUpProgram();
    Start();
    EXPECT_TRUE(Frame().OnCmdMsg(CMD_CONTEXT_HELP));
    EXPECT_TRUE(QWhatsThis::inWhatsThisMode());
    QWhatsThis::leaveWhatsThisMode();
}

TEST_F(QrbAppTest, EndsWithZeroAfterAFatalMessage)
{
    WriteTree(folder.Path(), {"config/quorbit/machine.ini=damaged"});
    Make();
    EXPECT_EQ(Live(), 0);
    EXPECT_EQ(prompts.asked, Lines{kRegistryMessage});
    EXPECT_EQ(prompts.icons, std::vector<PromptIcon>{PromptIcon::Stop});
    EXPECT_EQ(app->MainFrame(), nullptr);
}

// --- the modes
// ------------------------------------------------------------------------------------

TEST_F(QrbAppTest, EndsEachModeAsTold)
{
    struct Case {
        std::uint32_t mode;
        const char* source;
        PromptAnswer toError;
        bool minimised;
        bool ownerCloses;  // somebody has to press OK
        int exitCode;
    };
    SetUpProgram();
    WriteTree(folder.Path(), {"from/a.txt=a"});
    for (const Case& c : {Case{kRunAndQuit, "from", PromptAnswer::No, true, false, 0},
                          Case{kRunAndQuit, "none", PromptAnswer::No, true, false, 1},
                          Case{kRunAndStayOpen, "from", PromptAnswer::No, true, true, 0},
                          Case{kRunAndStayOpen, "none", PromptAnswer::No, true, true, 1},
                          Case{kRunInvisible, "from", PromptAnswer::No, true, false, 0}}) {
        fs::remove_all(Path("to"));
        fs::remove_all(Path("state"));
        fs::create_directories(Path("state/quorbit"));
        prompts.asked.clear();
        prompts.answers = {c.toError};
        WriteBatch("a.qrb", c.source);
        Make(c.mode, Path("a.qrb"));
        if (c.ownerCloses) {
            CloseRunDialogAtItsEnd();
        }
        EXPECT_EQ(Live(), c.exitCode) << c.mode << c.source;
        EXPECT_EQ(Frame().isMinimized(), c.minimised);
        EXPECT_EQ(prompts.asked.size(), c.exitCode == 1 ? 1U : 0U) << "the error";
        EXPECT_EQ(ContentOf(Path("to/a.txt")) == "a", c.exitCode == 0);
        EXPECT_NE(Log("a").find("Elapsed time:"), std::string::npos);
        EXPECT_TRUE(app->Recent().List().empty()) << "nobody has opened it";
    }
}

TEST_F(QrbAppTest, StartsNoRunByItselfWithoutASwitch)
{
    SetUpProgram();
    WriteTree(folder.Path(), {"from/a.txt=a"});
    WriteBatch("a.qrb");
    Start(0, Path("a.qrb"));
    Serve();
    EXPECT_EQ(Log("a"), "(none)");
    EXPECT_EQ(app->Recent().List(), Lines{Path("a.qrb")});

    CloseRunDialogAtItsEnd();
    EXPECT_TRUE(Frame().OnCmdMsg(CMD_START_BATCH));
    EXPECT_EQ(ContentOf(Path("to/a.txt")), "a");
    Serve();
    EXPECT_FALSE(ended) << "the program goes on after a run that a person started";
    EXPECT_EQ(app->ExitInstance(0), 0);

    EXPECT_TRUE(Frame().OnCmdMsg(CMD_LOG_FILE));
    EXPECT_EQ(editor.opened, Lines{Path("state/quorbit/a.log")});
}

TEST_F(QrbAppTest, EndsWithTwoAndNoRunIfTheFileCannotBeRead)
{
    SetUpProgram();
    WriteContent(Path("cut.qrb"), "1234");
    for (const std::uint32_t mode :
         {std::uint32_t{0}, std::uint32_t{kRunAndQuit}, std::uint32_t{kRunAndStayOpen}}) {
        for (const char* name : {"cut.qrb", "missing.qrb"}) {
            prompts.asked.clear();
            Make(mode, Path(name));
            EXPECT_EQ(Live(), 2) << mode << name;
            ASSERT_EQ(prompts.asked.size(), 1U);
            EXPECT_TRUE(prompts.asked[0].starts_with(Path(name) + "\n")) << prompts.asked[0];
            EXPECT_FALSE(fs::exists(Path("state/quorbit/cut.log")));
        }
    }
}

TEST_F(QrbAppTest, EndsWithZeroIfTheLogCannotBeCreatedAndSavesChangesBefore)
{
    SetUpProgram();
    WriteBatch("a.qrb");
    Start(0, Path("a.qrb"));
    Doc().m_arrEntries[0].m_strDest = "/changed";
    Doc().SetModifiedFlag();
    fs::remove_all(Path("state"));
    prompts.answers = {PromptAnswer::Ok, PromptAnswer::Yes};

    Frame().PostCommand(CMD_START_BATCH);
    EXPECT_EQ(app->ExitInstance(QApplication::exec()), 0);

    ASSERT_EQ(prompts.asked.size(), 2U);
    EXPECT_TRUE(prompts.asked[0].starts_with("The log file cannot be created: "));
    EXPECT_EQ(prompts.asked[1], "Save changes to " + Path("a.qrb") + "?");
    BatchFile file;
    ASSERT_TRUE(ReadBatchFile(Path("a.qrb"), file));
    EXPECT_EQ(file.entries[0].m_strDest, "/changed");
}

// --- leaving
// --------------------------------------------------------------------------------------

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
    WhenDialog([](QDialog&) { return true; }, [this](QDialog&) { app->OnStopSignal(); });
    QTimer::singleShot(0, qApp, [this] { Frame().OnCmdMsg(CMD_ABOUT); });
    EXPECT_EQ(app->ExitInstance(QApplication::exec()), 0);
    EXPECT_FALSE(Frame().isVisible());
}

TEST_F(QrbAppTest, LeavesTheQuestionAboutChangesToThePersonWhenASignalAsks)
{
    SetUpProgram();
    Start();
    Doc().SetModifiedFlag();
    prompts.whileOpen = [this] {
        app->OnStopSignal();
        Serve();
    };
    app->OnStopSignal();
    Serve();
    EXPECT_EQ(prompts.asked, Lines{"Save changes to Untitled?"}) << "asked once";
    EXPECT_FALSE(ended) << "and cancelled";
}

TEST_F(QrbAppTest, StopsARunWhenASignalAsksAndAnswersItsBoxes)
{
    SetUpProgram();
    WriteBatch("a.qrb", "none");
    Make(kRunAndQuit, Path("a.qrb"));
    // The run asks what to do about its error; nobody answers, a signal comes.
    prompts.whileOpen = [this] { app->OnStopSignal(); };
    EXPECT_EQ(Live(), 1);
    EXPECT_EQ(prompts.asked.size(), 1U) << "the box at the end of a stopped run stays away";
    EXPECT_NE(Log("a").find("**** Stopped by user. ****"), std::string::npos) << Log("a");
}

TEST_F(QrbAppTest, TakesAFatalMessageFromAnyThread)
{
    SetUpProgram();
    Start();
    std::thread([this] { app->FatalMessage("Over."); }).join();
    EXPECT_EQ(app->ExitInstance(QApplication::exec()), 0);
    EXPECT_EQ(prompts.asked, Lines{"Over."});
}

TEST_F(QrbAppTest, EndsIfItCannotBeToldWhereTheLastLogLies)
{
    SetUpProgram();
    Start();
    EXPECT_TRUE(Frame().OnCmdMsg(CMD_LOG_FILE));
    EXPECT_EQ(prompts.asked, Lines{}) << "the editor tells that there is none yet";
    ASSERT_TRUE(stores.machine.Write({{"1.00", "Log File", std::string(128, 'x')}}));
    Frame().PostCommand(CMD_LOG_FILE);
    EXPECT_EQ(app->ExitInstance(QApplication::exec()), 0);
    EXPECT_EQ(prompts.asked, Lines{kRegistryMessage});
}

// --- files
// ----------------------------------------------------------------------------------------

TEST_F(QrbAppTest, StartsFileOpenInTheFolderOfTheOptions)
{
    SetUpProgram();
    Start();
    const auto folderOf = [this] {
        EXPECT_TRUE(Frame().OnCmdMsg(CMD_FILE_OPEN));
        return prompts.fileQuestions.back().folder;
    };
    EXPECT_EQ(folderOf(), Path("state/quorbit/")) << "the install path";
    profile.WriteProfileString(Setting::QrbFilePath, "/batches");
    EXPECT_EQ(folderOf(), "/batches");
    profile.WriteProfileString(Setting::QrbFilePath, "");
    EXPECT_EQ(folderOf(), "") << "the system's choice";
    EXPECT_EQ(prompts.fileQuestions[0].filters, (Lines{"QRB Files (*.qrb)", "All Files (*.*)"}));
    EXPECT_EQ(prompts.fileQuestions[0].name + prompts.fileQuestions[0].defaultSuffix, "");

    WriteBatch("a.qrb");
    prompts.files = {Path("a.qrb")};
    EXPECT_TRUE(Frame().OnCmdMsg(CMD_FILE_OPEN));
    EXPECT_EQ(Title(), "QRB " + Path("a.qrb"));
}

TEST_F(QrbAppTest, OpensRecentFilesAndOffersToForgetThoseThatAreGone)
{
    SetUpProgram();
    Start();
    WriteBatch("a.qrb");
    WriteContent(Path("cut.qrb"), "1234");
    app->Recent().Add(Path("cut.qrb"));
    app->Recent().Add(Path("gone.qrb"));
    app->Recent().Add(Path("a.qrb"));

    prompts.answers = {PromptAnswer::No, PromptAnswer::Yes};
    EXPECT_TRUE(Frame().OnCmdMsg(CMD_RECENT_FILE_FIRST + 1));
    EXPECT_EQ(app->Recent().List().size(), 3U);
    EXPECT_TRUE(Frame().OnCmdMsg(CMD_RECENT_FILE_FIRST + 1));
    EXPECT_EQ(app->Recent().List(), (Lines{Path("a.qrb"), Path("cut.qrb")}));

    EXPECT_TRUE(Frame().OnCmdMsg(CMD_RECENT_FILE_FIRST + 1)) << "it is damaged, but there";
    EXPECT_EQ(prompts.asked.size(), 3U);
    EXPECT_EQ(app->Recent().List().size(), 2U);

    EXPECT_TRUE(Frame().OnCmdMsg(CMD_RECENT_FILE_FIRST));
    EXPECT_EQ(Title(), "QRB " + Path("a.qrb"));
    EXPECT_FALSE(Frame().Route().StateOf(CMD_RECENT_FILE_FIRST + 2).enabled);
}

TEST(AboutDialogTest, TellsMemoryAndFreeSpace)
{
    const auto textOf = [](const CAboutDlg& dialog, const char* name) {
        return dialog.findChild<QLabel*>(QLatin1String(name))->text().toStdString();
    };
    const CAboutDlg known(nullptr, {4194304, 1234567, "home"}, {});
    EXPECT_EQ(textOf(known, "m_stcMemory"), "4194304 KB");
    EXPECT_EQ(textOf(known, "m_stcFree"), "1234567 KB Free on home:");
    EXPECT_EQ(textOf(CAboutDlg(nullptr, {1, std::nullopt, "home"}, {}), "m_stcFree"),
              "Unavailable");

    const AboutFacts facts = ReadAboutFacts();
    EXPECT_GT(facts.memoryKb, 1024U);
    // A changed root may hide what the current folder is mounted from.
    EXPECT_EQ(facts.freeKb.has_value(), !facts.volume.empty());
}

}  // namespace
}  // namespace quorbit
