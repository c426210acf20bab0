// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs the program on the offscreen platform and without a display.

#include <signal.h>

#include <filesystem>

#include "app/quorbit_program.h"
#include "support/wait.h"

namespace quorbit {
namespace {

namespace fs = std::filesystem;

class WindowModes : public QuorbitProgram {
protected:
    [[nodiscard]] ProgramCall CallInWindow(const std::vector<std::string>& arguments) const
    {
        ProgramCall call = Call(arguments);
        call.environment["QT_QPA_PLATFORM"] = "offscreen";
        return call;
    }
    // The log has its footer.
    [[nodiscard]] bool HasEnded(const std::string& document) const
    {
        return Counts(Log(document)).contains("Error");
    }
    // The main window has closed; it stores its window state only then.
    [[nodiscard]] bool HasClosed() const
    {
        return Contains(ContentOf(Path("config/quorbit/profile.ini")), "WindowState=1");
    }
    // Repeats the signal: during a run it only requests a stop, after the run it presses OK.
    void SignalUntilClosed(const Program& program, int number) const
    {
        ASSERT_TRUE(Eventually([&] {
            program.Signal(number);
            return HasClosed();
        }));
    }
};

TEST_F(WindowModes, RunAndQuitByItself)
{
    SetUpProgram();
    Write({"from/a.txt=a"});
    WriteBatch("nightly.qrb", {CopyEntry("from", "to")});
    const ProgramResult result = RunProgram(CallInWindow({"nightly.qrb", "/vs"}));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(ContentOf(Path("to/a.txt")), "a");
    EXPECT_EQ(Counts(Log("nightly"))["Copy"], "1");
}

TEST_F(WindowModes, EndWithOneAfterAnError)
{
    SetUpProgram();
    Write({"config/quorbit/profile.ini=[Options]\nOptFlags=1\n"});  // no boxes
    WriteBatch("nightly.qrb", {CopyEntry("missing", "to")});
    EXPECT_EQ(RunProgram(CallInWindow({"nightly.qrb", "/VS"})).exitCode, 1);

    fs::remove(Path("state/quorbit/nightly.log"));
    Program stays(CallInWindow({"nightly.qrb", "/VO"}));
    ASSERT_TRUE(Eventually([this] { return HasEnded("nightly"); }));
    SignalUntilClosed(stays, SIGTERM);
    EXPECT_EQ(stays.Wait().exitCode, 1);
}

TEST_F(WindowModes, StayOpenUntilSomebodyClosesTheDialog)
{
    SetUpProgram();
    Write({"from/a.txt=a"});
    WriteBatch("nightly.qrb", {CopyEntry("from", "to")});
    Program program(CallInWindow({"/VO", "nightly.qrb"}));
    ASSERT_TRUE(Eventually([this] { return HasEnded("nightly"); }));
    SignalUntilClosed(program, SIGINT);
    const ProgramResult result = program.Wait();
    EXPECT_EQ(result.exitCode, 0) << result.endedBySignal;
    EXPECT_EQ(ContentOf(Path("to/a.txt")), "a");
}

TEST_F(WindowModes, CloseTheMainWindowWhenASignalAsks)
{
    SetUpProgram();
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        fs::remove(Path("config/quorbit/profile.ini"));
        fs::remove(Path("config/quorbit/filetypes.ini"));
        Program program(CallInWindow({}));
        // Registering the file type is one of the last steps before the window is shown.
        ASSERT_TRUE(
            Eventually([this] { return fs::exists(Path("config/quorbit/filetypes.ini")); }));
        program.Signal(number);
        const ProgramResult result = program.Wait();
        EXPECT_EQ(result.exitCode, 0) << number << " " << result.endedBySignal;
        EXPECT_TRUE(fs::exists(Path("config/quorbit/profile.ini"))) << "its place is remembered";
    }
}

TEST_F(WindowModes, EndWithTwoIfTheFileCannotBeRead)
{
    SetUpProgram();
    Write({"damaged.qrb=1234"});
    fs::remove(Path("config/quorbit/filetypes.ini"));
    Program program(CallInWindow({"damaged.qrb", "/VS"}));
    ASSERT_TRUE(Eventually(
        [this] { return fs::exists(Path("data/mime/packages/org.example.Quorbit.xml")); }));
    program.Signal(SIGTERM);  // closes the box with the error
    EXPECT_EQ(program.Wait().exitCode, 2);
    EXPECT_FALSE(fs::exists(Path("state/quorbit/damaged.log")));
}

TEST_F(WindowModes, SayThatThereIsNoDisplay)
{
    SetUpProgram();
    Write({"from/a.txt=a"});
    WriteBatch("nightly.qrb", {CopyEntry("from", "to")});
    const std::vector<std::vector<std::string>> commandLines{
        {}, {"nightly.qrb"}, {"nightly.qrb", "/VS"}, {"nightly.qrb", "/VO"}};
    for (const auto& arguments : commandLines) {
        ProgramCall without = Call(arguments);
        ProgramCall refused = Call(arguments);
        refused.environment["DISPLAY"] = "host.invalid:99";
        refused.environment["QT_QPA_PLATFORM"] = "xcb";
        for (const ProgramCall& call : {without, refused}) {
            const ProgramResult result = RunProgram(call);
            EXPECT_EQ(result.exitCode, 2) << result.endedBySignal;
            EXPECT_TRUE(Contains(result.err, "display")) << result.err;
            EXPECT_TRUE(Contains(result.err, "/I")) << "it names a way out";
        }
    }
    EXPECT_FALSE(fs::exists(Path("to")));
    EXPECT_EQ(Run({"nightly.qrb", "/I"}).exitCode, 0) << "that way works";
}

TEST_F(WindowModes, AFirstStartThatNobodyCanSeeIsCompletedByTheUnattendedRun)
{
    Write({"from/a.txt=a"});
    WriteBatch("nightly.qrb", {CopyEntry("from", "to")});
    for (const auto& [display, platform] :
         {std::pair("host.invalid:99", "xcb"), std::pair("", "offscreen"),
          std::pair("host.invalid:99", "offscreen")}) {
        fs::remove_all(Path("config"));
        fs::remove_all(Path("to"));
        ProgramCall call = Call({"nightly.qrb", "/I"});
        call.environment["DISPLAY"] = display;
        call.environment["QT_QPA_PLATFORM"] = platform;
        const ProgramResult first = RunProgram(call);
        EXPECT_EQ(first.exitCode, 2) << display << platform;
        EXPECT_TRUE(Contains(first.err, "Just run again")) << first.err;
        EXPECT_EQ(RunProgram(call).exitCode, 0) << display << platform;
        EXPECT_EQ(ContentOf(Path("to/a.txt")), "a");
    }
}

TEST_F(WindowModes, DoNotUseUpTheFirstStartWithoutADisplay)
{
    EXPECT_EQ(Run({}).exitCode, 2);
    EXPECT_FALSE(fs::exists(Path("config/quorbit/machine.ini")));
}

}  // namespace
}  // namespace quorbit
