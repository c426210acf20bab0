// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QCoreApplication>
#include <QKeyEvent>

#include "engine/dialog/dialog_test.h"
#include "engine/run_flags.h"

namespace quorbit {
namespace {

class ProgressDialogTest : public DialogTest {
protected:
    // "on" or "off" for Start, Stop Counting and View Log, then the text of the Cancel button.
    [[nodiscard]] std::string State() const
    {
        std::string state;
        for (const char* button : {"m_btnStart", "m_btnStopCounting", "m_btnViewLog"}) {
            state += Enabled(button) ? "on " : "off ";
        }
        return state + Text("m_btnCancel");
    }

    [[nodiscard]] Lines Values() const
    {
        Lines values;
        for (const char* label :
             {"m_stcFilesLeft", "m_stcTotalCount", "m_stcCopyCount", "m_stcSyncCount",
              "m_stcDidntSyncCount", "m_stcBackupCount", "m_stcDeleteCount", "m_stcErrorCount"}) {
            values.push_back(Text(label));
        }
        return values;
    }

    void Press(int key)
    {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(m_pDialog.get(), &press);
    }
};

TEST_F(ProgressDialogTest, WalksThroughItsStates)
{
    Write({"from/a.txt=a", "from/b.txt=b"});
    AddCopy();
    Gate& counting = HoldAt(FileSystemCall::Next, 3);
    Gate& processing = HoldAt(FileSystemCall::CopyFile, 2);
    Open();
    EXPECT_EQ(State(), "on off off &Cancel");
    UntilReached(counting);
    EXPECT_TRUE(Until([this] { return Text("m_stcFilesLeft") == "2"; }));
    EXPECT_EQ(State(), "off on off &Cancel");
    counting.Open();
    UntilReached(processing);
    EXPECT_TRUE(
        Until([this] { return Values() == Lines{"1", "2", "1", "0", "0", "0", "0", "0"}; }));
    EXPECT_EQ(State(), "off off off &Cancel");
    EXPECT_EQ(m_pDialog->findChild<QProgressBar*>()->maximum(), 2);
    EXPECT_EQ(m_pDialog->findChild<QProgressBar*>()->value(), 1);
    processing.Open();
    UntilEnded();
    EXPECT_EQ(State(), "off off on OK");
    EXPECT_TRUE(m_pDialog->isVisible());
    Click("m_btnCancel");
    UntilClosed();
    EXPECT_EQ(g_bRunStarted, 0);
    EXPECT_EQ(g_bStopRun, 1);
}

TEST_F(ProgressDialogTest, ShowsTheClosingValuesExactly)
{
    Write({"from/a.txt=1", "from/b.txt=22", "from/c.txt=333", "other/", "to/b.txt=old",
           "to/c.txt=new", "numbered/b.txt=old", "rubbish/x=", "rubbish/y="});
    SetModified(Path("to/b.txt"), 1'000'000'000);
    SetModified(Path("to/c.txt"), 4'000'000'000);
    SetModified(Path("numbered/b.txt"), 1'000'000'000);
    AddCopy(DCF_SYNC);                                      // copies a, syncs b, skips c
    AddCopy(DCF_INCREMENTAL).m_strDest = Path("numbered");  // copies a and c, backs up b
    AddCopy(DCF_DELETE).m_strSource = Path("rubbish");
    CDirCopy& failing = AddCopy();
    failing.m_strDest = Path("other");
    failing.m_nKind = DCK_NAMES;
    failing.m_listItems = {"a.txt"};
    FailCopy(6);
    RunAndClose();
    EXPECT_EQ(Values(), (Lines{"0", "9", "3", "1", "1", "1", "2", "1"}));
    EXPECT_EQ(m_pDialog->findChild<QProgressBar*>()->value(), 9);
    EXPECT_EQ(Text("m_stcCurrentFile"), Path("from/a.txt"));
    EXPECT_EQ(Text("m_stcDestFile"), Path("other/a.txt"));
    EXPECT_EQ(Text("m_stcFileSize"), "1 KB");
    EXPECT_EQ(Text("m_stcFileStatus"), "Copying File.");
    EXPECT_TRUE(Text("m_stcTransfer").starts_with("9 bytes copied")) << Text("m_stcTransfer");
    EXPECT_NE(Log().find("Elapsed time: " + Text("m_stcElapsed") + "\r\nTotal Count: 9\r\n"),
              std::string::npos);
}

TEST_F(ProgressDialogTest, EveryWayToCancelFinishesTheFileAndStops)
{
    const std::function<void()> ways[] = {[this] { Click("m_btnCancel"); },
                                          [this] { Press(Qt::Key_Escape); },
                                          [this] { m_pDialog->close(); }};
    Write({"from/a.txt=a", "from/b.txt=b", "from/c.txt=c"});
    AddCopy();
    int copies = 0;
    for (const auto& cancel : ways) {
        m_prompts.boxes.clear();
        Gate& processing = HoldAt(FileSystemCall::CopyFile, copies + 2);
        Open();
        UntilReached(processing);
        cancel();
        EXPECT_TRUE(
            Until([this] { return Text("m_stcTransfer").ends_with("stopping after this file"); }));
        EXPECT_EQ(State(), "off off off &Cancel");
        processing.Open();
        UntilEnded();
        ASSERT_TRUE(Until([this] { return !m_prompts.boxes.empty(); }));
        EXPECT_EQ(m_prompts.boxes,
                  Boxes({{"Process canceled by user.  Hit OK to continue.", "Process stopped.",
                          PromptIcon::None, PromptButtons::Ok}}));
        EXPECT_EQ(Text("m_stcCopyCount"), "2");
        EXPECT_EQ(Text("m_stcTotalCount"), "3");
        EXPECT_NE(Log().find("\r\n**** Stopped by user. ****\r\n"), std::string::npos);
        cancel();
        UntilClosed();
        m_pDialog.reset();
        copies = m_files.Count(FileSystemCall::CopyFile);
    }
}

TEST_F(ProgressDialogTest, AnErrorPromptStopsTheRunOnYes)
{
    Write({"from/a.txt=a", "from/b.txt=b", "from/c.txt=c"});
    AddCopy();
    FailCopy(1);
    m_prompts.answer = PromptAnswer::Yes;
    RunAndClose();
    EXPECT_EQ(m_prompts.boxes.front(),
              (FakePrompts::Box{"Permission denied\r\n  Do you want to CANCEL file processing?",
                                "Error", PromptIcon::Exclamation, PromptButtons::YesNo}));
    EXPECT_EQ(Text("m_stcCopyCount") + Text("m_stcErrorCount"), "01");
}

TEST_F(ProgressDialogTest, ShowsHostileNamesOnOneLineAndViewsTheLogOnceThereIsOne)
{
    Write({"from/line\nend & co=x"});
    AddCopy();
    Open();
    UntilEnded();
    EXPECT_EQ(Text("m_stcCurrentFile"), Path("from/line\\x0Aend & co"));
    Click("m_btnViewLog");
    EXPECT_EQ(m_editor.opened, Lines{m_strLog});
}

}  // namespace
}  // namespace quorbit
