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
                          Case{{"--show", "nightly.qrb"}, Path("from")}}) {
        const ProgramResult result = Run(c.arguments);
        EXPECT_EQ(result.exitCode, 0) << c.arguments[0] << result.err;
        EXPECT_NE(result.out.find(c.expected), std::string::npos) << result.out;
        EXPECT_FALSE(std::filesystem::exists(Path("config"))) << c.arguments[0];
    }
}

TEST_F(CommandLineOfTheProgram, RefusesWhatItDoesNotUnderstand)
{
    SetUpProgram();
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"--nonsense"}, {"--show"}, {"--show", "none.qrb"}}) {
        const ProgramResult result = Run(arguments);
        EXPECT_EQ(result.exitCode, 2) << arguments[0];
        EXPECT_FALSE(result.err.empty()) << arguments[0];
    }
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
