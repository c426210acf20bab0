// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <signal.h>

#include <filesystem>

#include "app/quorbit_program.h"
#include "support/wait.h"

namespace quorbit {
namespace {

namespace fs = std::filesystem;

class UnattendedRun : public QuorbitProgram {
protected:
    void SetUp() override { SetUpProgram(); }

    // Returns an entry whose script creates "begun" and then waits up to 20 seconds for "open".
    [[nodiscard]] CDirCopy GateEntry() const
    {
        Write(
            {"gate.sh=touch begun\n"
             "for i in $(seq 2000); do [ -e open ] && exit; sleep 0.01; done\n"});
        return {Path("gate.sh"), "", DCF_SCRIPT_DOS, DCK_NAMES, 0};
    }
    void WaitForGate() const
    {
        ASSERT_TRUE(Eventually([this] { return fs::exists(Path("begun")); }));
    }
    void OpenGate() const { Write({"open="}); }
};

TEST_F(UnattendedRun, DoesItsWorkSilentlyAndEndsWithZero)
{
    Write({"from/a.txt=a"});
    Write({"from/deep/b.txt=b"});
    WriteBatch("nightly.qrb", {CopyEntry("from", "to")});

    const ProgramResult result = Run({"nightly.qrb", "/I"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out + result.err, "");
    EXPECT_EQ(ReadTree(Path("to")), ReadTree(Path("from")));
    const std::string log = Log("nightly");
    EXPECT_TRUE(log.starts_with("Quorbit   File name: " + Path("nightly.qrb") + "\r\n")) << log;
    EXPECT_EQ(Counts(log)["Copy"], "2") << log;
}

TEST_F(UnattendedRun, TakesItsSwitchInAnyCaseAndPlace)
{
    Write({"from/a.txt=a"});
    WriteBatch("nightly.qrb", {CopyEntry("from", "to")});
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"/I", "nightly.qrb"}, {"nightly.qrb", "/i"}, {Path("nightly.qrb"), "/I"}}) {
        fs::remove_all(Path("to"));
        EXPECT_EQ(Run(arguments).exitCode, 0) << arguments[0];
        EXPECT_EQ(ReadTree(Path("to")), ReadTree(Path("from"))) << arguments[0];
    }
}

TEST_F(UnattendedRun, EndsWithOneAfterAnErrorAndSaysWhich)
{
    Write({"from/a.txt=a"});
    WriteBatch("nightly.qrb", {CopyEntry("missing", "to"), CopyEntry("from", "to")});

    const ProgramResult result = Run({"nightly.qrb", "/I"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(Contains(result.err, "Source path is invalid.")) << result.err;
    EXPECT_TRUE(Contains(Log("nightly"), "ERROR: Source path is invalid.   Path not found:  "));
    EXPECT_EQ(Counts(Log("nightly"))["Error"], "1");
    EXPECT_EQ(ContentOf(Path("to/a.txt")), "a") << "an error must not end the run";
}

TEST_F(UnattendedRun, DoesNothingWithoutABatchThatCanBeRead)
{
    WriteBatch("whole.qrb", {CopyEntry("from", "to")});
    WriteContent(Path("cut.qrb"), ContentOf(Path("whole.qrb")).substr(0, 40));
    Write({"other.qrb=This is a letter to my aunt."});
    fs::create_directory(Path("folder.qrb"));
    for (const char* name : {"missing", "cut", "other", "folder"}) {
        const ProgramResult result = Run({std::string(name) + ".qrb", "/I"});
        EXPECT_EQ(result.exitCode, 2) << name;
        EXPECT_TRUE(Contains(result.err, std::string(name) + ".qrb")) << result.err;
        EXPECT_FALSE(fs::exists(Path(std::string("state/quorbit/") + name + ".log"))) << name;
    }
}

TEST_F(UnattendedRun, FinishesItsStepAndItsLogWhenASignalAsksItToStop)
{
    Write({"from/a.txt=a"});
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        // The script sends the signal itself and ends when the signal is no longer pending, so the
        // program has received it before the next entry.
        Write({"ask.sh=kill -" + std::to_string(number) +
               " $PPID\n"
               "while grep -qE '^(ShdPnd|SigPnd):.*[1-9a-f]' /proc/$PPID/status; do :; done\n"});
        WriteBatch("nightly.qrb",
                   {{Path("ask.sh"), "", DCF_SCRIPT_DOS, DCK_NAMES, 0}, CopyEntry("from", "to")});
        const ProgramResult result = Run({"nightly.qrb", "/I"});

        EXPECT_EQ(result.exitCode, 0) << number << result.err;
        EXPECT_FALSE(fs::exists(Path("to"))) << number;
        const std::string log = Log("nightly");
        EXPECT_TRUE(Contains(log, "***** Error maximum was reached *****\r\n")) << log;
        EXPECT_EQ(Counts(log)["Total"], "2") << log;
    }
}

TEST_F(UnattendedRun, LeavesTheLogOfARunOfTheSameDocumentAlone)
{
    Write({"from/a.txt=a"});
    WriteBatch("nightly.qrb", {GateEntry(), CopyEntry("from", "to")});
    Program first(Call({"nightly.qrb", "/I"}));
    WaitForGate();
    const ProgramResult second = Run({"nightly.qrb", "/I"});
    OpenGate();

    EXPECT_EQ(second.exitCode, 2);
    EXPECT_TRUE(Contains(second.err, "nightly.log")) << second.err;
    EXPECT_EQ(first.Wait().exitCode, 0);
    EXPECT_EQ(Counts(Log("nightly"))["Copy"], "1");
}

TEST_F(UnattendedRun, FindsTheDrivesThatTheUserHasMapped)
{
    Write({"mount/Data/a.txt=a"});
    Write({"config/quorbit/profile.ini=[Drives]\nC=" + Path("mount") + "\n"});
    CDirCopy entry = CopyEntry("", "");
    entry.m_strSource = "C:\\Data";
    entry.m_strDest = "C:\\Save";
    WriteBatch("made-on-windows.qrb", {entry});

    EXPECT_EQ(Run({"made-on-windows.qrb", "/I"}).exitCode, 0);

    EXPECT_EQ(ContentOf(Path("mount/Save/a.txt")), "a");
    EXPECT_TRUE(Contains(Log("made-on-windows"), "Current File: C:\\Data\\a.txt\r\n"));
}

}  // namespace
}  // namespace quorbit
