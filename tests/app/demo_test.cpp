// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <filesystem>

#include "app/quorbit_program.h"

namespace quorbit {
namespace {

namespace fs = std::filesystem;

// Runs a copy of the demo as "./run examples/demo.qrb /I" does.
class Demo : public QuorbitProgram {
protected:
    void SetUp() override
    {
        fs::create_directory(Path("examples"));
        for (const char* name : {"demo.qrb", "prepare-demo", "note.sh"}) {
            fs::copy_file(fs::path(QUORBIT_SOURCE_DIR) / "examples" / name,
                          Path("examples/") + name);
        }
        SetUpProgram();
    }
    [[nodiscard]] ProgramResult RunDemo() const
    {
        const ProgramResult prepared = RunProgram({.arguments = {Path("examples/prepare-demo")}});
        EXPECT_EQ(prepared.exitCode, 0) << prepared.err;
        return Run({"examples/demo.qrb", "/I", "--summary"});
    }
};

const std::map<std::string, std::string> kCounts{
    {"Total", "21"}, {"Delete", "3"}, {"Sync", "1"},  {"Didn't Sync", "1"},
    {"Copy", "13"},  {"Backup", "1"}, {"Error", "0"},
};

TEST_F(Demo, LeavesTheTreesAndTheCountsThatItsReadmePromises)
{
    const auto tree = [this](const char* name) { return ReadTree(Path("examples/work/") + name); };
    for (const char* round : {"first", "second"}) {
        const ProgramResult result = RunDemo();
        EXPECT_EQ(result.exitCode, 0) << round << '\n' << result.err;
        EXPECT_EQ(Counts(Log("demo")), kCounts) << round;

        TreeLines office = tree("office");
        EXPECT_EQ(tree("1-tree"), office);
        std::erase_if(office, [](const std::string& line) { return Contains(line, ".tmp="); });
        EXPECT_EQ(tree("5-without-tmp"), office);
        EXPECT_EQ(tree("2-flat"),
                  (TreeLines{"offer.txt=Our offer.\n", "readme.txt=What the office keeps.\n",
                             "reply.txt=Their reply.\n"}));
        EXPECT_EQ(tree("3-sync/to"),
                  (TreeLines{"new.txt=Not there yet.\n", "newer.txt=Changed in summer.\n",
                             "older.txt=Changed this summer.\n"}));
        EXPECT_EQ(tree("4-backup/to"), (TreeLines{"report.txt=The report, second edition.\n",
                                                  "report1.txt=The report, first edition.\n",
                                                  "terms.txt=The terms.\n"}));
        EXPECT_EQ(tree("6-tidy"), (TreeLines{"keep.txt=To be kept.\n"}));
        EXPECT_FALSE(fs::exists(Path("examples/work/7-rubbish")));
        EXPECT_TRUE(Contains(ContentOf(Path("examples/work/8-note.txt")), "./6-tidy/keep.txt\n"));
    }
    EXPECT_EQ(Counts(ContentOf(QUORBIT_SOURCE_DIR "/examples/README.md")), kCounts);
}

TEST_F(Demo, PrintsTheClosingCountsAndThePlaceOfTheLog)
{
    const ProgramResult result = RunDemo();
    EXPECT_TRUE(
        Contains(result.out, "Copied 13, synced 1, left alone 1, backed up 1, deleted 3, errors 0"))
        << result.out;
    EXPECT_TRUE(Contains(result.out, Path("state/quorbit/demo.log"))) << result.out;
}

TEST_F(Demo, IsWhatItsGeneratorWrites)
{
    const ProgramResult made = RunProgram({.arguments = {MAKE_DEMO_BINARY, Path("made.qrb")}});
    ASSERT_EQ(made.exitCode, 0) << made.err;
    EXPECT_EQ(ContentOf(Path("made.qrb")), ContentOf(Path("examples/demo.qrb")));
}

}  // namespace
}  // namespace quorbit
