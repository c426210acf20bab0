// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <filesystem>

#include "app/quorbit_program.h"

namespace quorbit {
namespace {

class CommandLineOfTheProgram : public QuorbitProgram {};

TEST_F(CommandLineOfTheProgram, AnswersWithoutSettingsAndWithoutADisplay)
{
    WriteBatch("nightly.qrb", {CopyEntry("from", "to")});
    struct Case {
        std::vector<std::string> arguments;
        std::string expected;
    };
    for (const Case& c : {Case{{"--version"}, QUORBIT_VERSION}, Case{{"--help"}, "--setup"},
                          Case{{"--show", "nightly.qrb"}, Path("from")},
                          Case{{"-v"}, QUORBIT_VERSION}, Case{{"-h"}, "--setup"}}) {
        const ProgramResult result = Run(c.arguments);
        EXPECT_EQ(result.exitCode, 0) << c.arguments[0] << result.err;
        EXPECT_NE(result.out.find(c.expected), std::string::npos) << result.out;
        EXPECT_FALSE(std::filesystem::exists(Path("config"))) << c.arguments[0];
    }
}

TEST_F(CommandLineOfTheProgram, RefusesWhatItDoesNotUnderstandAndRunsNothing)
{
    SetUpProgram();
    Write({"from/a.txt=a", "-n="});
    WriteBatch("nightly.qrb", {CopyEntry("from", "to")});
    WriteBatch("second.qrb", {CopyEntry("from", "to")});
    const std::vector<std::vector<std::string>> lines{
        {"--nonsense"},
        {"--show"},
        {"--show", "none.qrb"},
        {"--show", "nightly.qrb", "/I"},
        {"--setup", "extra"},
        {"--setup", "--help"},
        {"--summary", "nightly.qrb"},
        {""},
        {"/I"},
        {"", "/I"},
        {"-", "/I"},
        {"nightly.qrb", "-n", "/I"},
        {"nightly.qrb", "/X", "/I"},
        {"nightly.qrb", "--dry-run", "/I"},
        {"nightly.qrb", "second.qrb", "/I"},
        {"nightly.qrb", "--help", "/I"},
    };
    for (const std::vector<std::string>& arguments : lines) {
        const ProgramResult result = Run(arguments);
        EXPECT_EQ(result.exitCode, 2) << testing::PrintToString(arguments);
        EXPECT_FALSE(result.err.empty()) << testing::PrintToString(arguments);
        EXPECT_FALSE(std::filesystem::exists(Path("to"))) << testing::PrintToString(arguments);
    }
}

TEST_F(CommandLineOfTheProgram, TakesNoSwitchFromAPath)
{
    SetUpProgram();
    Write({"Inbox/vs/a.txt=a", "data/"});
    WriteBatch("data/input", {CopyEntry("Inbox", "to")});
    for (const char* name : {"Inbox/nightly", "none/Inbox", "vo/vs"}) {
        const ProgramResult result = Run({Path(name), "/I"});
        EXPECT_EQ(result.exitCode, 2) << name;
        EXPECT_TRUE(Contains(result.err, Path(name) + ": ")) << result.err;
    }
    // Without a switch these need a window, which there is none for.
    EXPECT_TRUE(Contains(Run({"data/input"}).err, "display"));
    EXPECT_TRUE(Contains(Run({Path("Inbox/nightly")}).err, "display"));
    EXPECT_EQ(Run({Path("data/input"), "/I"}).exitCode, 0);
}

TEST_F(CommandLineOfTheProgram, EndsWithOneIfItsOutputIsLost)
{
    SetUpProgram();
    WriteBatch("nightly.qrb", {CopyEntry("config", "to")});
    for (const char* arguments :
         {"--help", "--version", "--show nightly.qrb", "nightly.qrb /I --summary"}) {
        for (const char* output : {">/dev/full", ">&-"}) {
            ProgramCall call = Call({});
            call.arguments = {"/bin/sh", "-c",
                              std::string(QUORBIT_BINARY) + " " + arguments + " " + output};
            const ProgramResult result = RunProgram(call);
            EXPECT_EQ(result.exitCode, 1) << arguments << output;
            EXPECT_TRUE(Contains(result.err, "standard output")) << result.err;
        }
    }
    EXPECT_FALSE(Contains(Log("nightly"), "Copied ")) << "no file gets a closed stream's number";
}

TEST_F(CommandLineOfTheProgram, DropsItsSwitchesOnTheFirstStartOnly)
{
    Write({"from/a.txt=a"});
    WriteBatch("nightly.qrb", {CopyEntry("from", "to")});

    const ProgramResult first = Run({"nightly.qrb", "/I"});

    EXPECT_NE(first.err.find("Command line options don't work if you are running for the first "
                             "time.  Just run again and they will work."),
              std::string::npos)
        << first.err;
    EXPECT_EQ(first.exitCode, 2) << "a caller must not take this for a run";
    EXPECT_FALSE(std::filesystem::exists(Path("to")));

    EXPECT_EQ(Run({"nightly.qrb", "/I"}).exitCode, 0);
    EXPECT_EQ(ReadTree(Path("to")), ReadTree(Path("from")));
}

TEST_F(CommandLineOfTheProgram, SetUpKeepsWhatAnEarlierOneLaidDown)
{
    SetUpProgram();
    const std::string store = Path("config/quorbit/machine.ini");
    WriteContent(store, ContentOf(store) + "; a remark of the administrator\n");
    const TreeLines before = ReadTree(Path("config"));
    SetUpProgram();
    EXPECT_EQ(ReadTree(Path("config")), before);
}

}  // namespace
}  // namespace quorbit
