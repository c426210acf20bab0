// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <signal.h>

#include <filesystem>
#include <functional>

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

TEST_F(UnattendedRun, EndsWithTwoWithoutABatchThatCanBeRead)
{
    WriteBatch("whole.qrb", {CopyEntry("from", "to")});
    WriteContent(Path("cut.qrb"), ContentOf(Path("whole.qrb")).substr(0, 40));
    Write({"other.qrb=This is a letter to my aunt.", "zero.qrb="});
    WriteBatch("none.qrb", {});
    fs::create_directory(Path("folder"));
    for (const std::string& name : {Path("missing.qrb"), Path("cut.qrb"), Path("other.qrb"),
                                    Path("folder"), std::string("/dev/null")}) {
        const ProgramResult result = Run({name, "/I"});
        EXPECT_EQ(result.exitCode, 2) << name;
        EXPECT_TRUE(Contains(result.err, name + ": ")) << result.err;
        EXPECT_FALSE(fs::exists(Path("state/quorbit/" + fs::path(name).stem().string() + ".log")));
    }
    for (const char* name : {"zero.qrb", "none.qrb"}) {
        const ProgramResult result = Run({name, "/I"});
        EXPECT_EQ(result.exitCode, 2) << name;
        EXPECT_EQ(result.err, "quorbit: The Batch File is empty.\n");
    }
}

TEST_F(UnattendedRun, EndsWithTwoIfItsLogOrItsSettingsCannotBeUsed)
{
    Write({"from/a.txt=a", "file="});
    WriteBatch("nightly.qrb", {CopyEntry("from", "to")});
    const std::string settings = ContentOf(Path("config/quorbit/machine.ini"));
    struct Case {
        std::function<void(ProgramCall&)> spoil;
        const char* message;
    };
    const auto machine = [this](const std::string& text) {
        return [this, text](ProgramCall&) { Write({"config/quorbit/machine.ini=" + text}); };
    };
    const std::vector<Case> cases{
        {machine(""), "machine.ini is empty or damaged"},
        {machine("\x01\x02\x03"), "machine.ini is empty or damaged"},
        {machine("[1.00]\nRun1=0\n"), "Install Path"},
        {machine("[1.00]\nRun1=0\nInstall Path=~/logs/\n"), "~/logs/"},
        {machine("[1.00]\nRun1=0\nInstall Path=" + Path("file/") + "\n"), "Not a directory"},
        {[this](ProgramCall& call) { call.environment["XDG_CONFIG_HOME"] = Path("file"); },
         "Error reading or writing from the registy."},
        {[](ProgramCall& call) { call.environment["XDG_STATE_HOME"] = "state"; },
         "XDG_STATE_HOME=state is not an absolute path"},
        {[](ProgramCall& call) { call.environment["HOME"] = "."; },
         "HOME=. is not an absolute path"},
        {[this](ProgramCall&) { fs::create_directories(Path("state/quorbit/nightly.log")); },
         "Is a directory"},
    };
    for (const Case& c : cases) {
        Write({"config/quorbit/machine.ini=" + settings});
        ProgramCall call = Call({"nightly.qrb", "/I"});
        c.spoil(call);
        const ProgramResult result = RunProgram(call);
        EXPECT_EQ(result.exitCode, 2) << c.message;
        EXPECT_TRUE(Contains(result.err, c.message)) << result.err;
        EXPECT_FALSE(fs::exists(Path("to"))) << c.message;
    }
}

TEST_F(UnattendedRun, CreatesItsLogFolderAgain)
{
    Write({"from/a.txt=a"});
    WriteBatch("nightly.qrb", {CopyEntry("from", "to")});
    fs::remove_all(Path("state"));
    EXPECT_EQ(Run({"nightly.qrb", "/I"}).exitCode, 0);
    EXPECT_EQ(Counts(Log("nightly"))["Copy"], "1");
}

TEST_F(UnattendedRun, EndsWithOneIfItsLogIsCutShort)
{
    Write({"from/a.txt=a"});
    WriteBatch("nightly.qrb", {CopyEntry("from", "to")});
    fs::create_symlink("/dev/full", Path("state/quorbit/nightly.log"));
    const ProgramResult result = Run({"nightly.qrb", "/I"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(Contains(result.err, "Error writing to the logfile.")) << result.err;
    EXPECT_EQ(ContentOf(Path("to/a.txt")), "a");
}

TEST_F(UnattendedRun, FinishesItsStepAndItsLogWhenASignalAsksItToStop)
{
    Write({"from/a.txt=a"});
    for (const auto& [number, name] : {std::pair(SIGTERM, "SIGTERM"), std::pair(SIGINT, "SIGINT"),
                                       std::pair(SIGHUP, "SIGHUP")}) {
        // The script sends the signal itself and ends when the program has announced the stop, so
        // before the next entry.
        Write({"ask.sh=kill -" + std::to_string(number) +
               " $PPID\n"
               "until grep -q 'stopped by' /proc/$PPID/fd/2; do sleep 0.01; done\n"});
        WriteBatch("nightly.qrb",
                   {{Path("ask.sh"), "", DCF_SCRIPT_DOS, DCK_NAMES, 0}, CopyEntry("from", "to")});
        const ProgramResult result = Run({"nightly.qrb", "/I"});

        EXPECT_EQ(result.exitCode, 1) << number << result.err;
        EXPECT_EQ(result.err, std::string("quorbit: stopped by ") + name +
                                  ", after the current file or script\n");
        EXPECT_FALSE(fs::exists(Path("to"))) << number;
        const std::string log = Log("nightly");
        EXPECT_TRUE(Contains(log, "***** Error maximum was reached *****\r\n")) << log;
        EXPECT_EQ(Counts(log)["Total"], "2") << log;
    }
}

TEST_F(UnattendedRun, EndsAScriptThatDoesNotEndByItselfAtTheThirdSignal)
{
    Write({"from/a.txt=a", "stuck.sh=trap '' INT TERM\ntouch begun\nwhile :; do sleep 60; done\n"});
    WriteBatch("nightly.qrb",
               {{Path("stuck.sh"), "", DCF_SCRIPT_DOS, DCK_NAMES, 0}, CopyEntry("from", "to")});
    Program program(Call({"nightly.qrb", "/I"}));
    WaitForGate();
    EXPECT_TRUE(Eventually([&] {
        program.Signal(SIGINT);
        return Counts(Log("nightly")).contains("Error");
    }));
    const ProgramResult result = program.Wait();
    EXPECT_EQ(result.exitCode, 1) << result.endedBySignal;
    EXPECT_FALSE(fs::exists(Path("to")));
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

TEST_F(UnattendedRun, NamesTheOtherDocumentOfTheSameNameAndLeavesItsLogAlone)
{
    Write({"from/a.txt=a", "one/", "two/"});
    WriteBatch("one/nightly.qrb", {GateEntry(), CopyEntry("from", "to")});
    WriteBatch("two/nightly.qrb", {CopyEntry("from", "to2")});
    Program first(Call({"one/nightly.qrb", "/I"}));
    WaitForGate();
    const ProgramResult refused = Run({"two/nightly.qrb", "/I"});
    OpenGate();
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_TRUE(Contains(refused.err, Path("one/nightly.qrb") + ". Both use the log file"))
        << refused.err;
    EXPECT_TRUE(Contains(refused.err, "rename one")) << refused.err;
    EXPECT_EQ(first.Wait().exitCode, 0);
    EXPECT_TRUE(Contains(Log("nightly"), Path("one/nightly.qrb")));

    const ProgramResult second = Run({"two/nightly.qrb", "/I"});
    EXPECT_EQ(second.exitCode, 0);
    EXPECT_TRUE(Contains(second.err, "warning: ")) << second.err;
    EXPECT_TRUE(Contains(second.err, Path("one/nightly.qrb"))) << second.err;
    EXPECT_EQ(Run({"two/nightly.qrb", "/I"}).err, "") << "its own log";
    fs::remove(Path("two/nightly.qrb"));
    EXPECT_EQ(Run({"one/nightly.qrb", "/I"}).err, "") << "the other one is gone";
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
