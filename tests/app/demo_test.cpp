// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <filesystem>

#include "app/quorbit_program.h"

namespace quorbit {
namespace {

namespace fs = std::filesystem;

// The demo in a copy of its folder, as "./run examples/demo.qrb /I" starts it.
class Demo : public QuorbitProgram {
protected:
    void SetUp() override
    {
        fs::create_directory(Path("examples"));
        for (const char* name : {"demo.qrb", "prepare-demo", "note.sh"})
            fs::copy_file(fs::path(QUORBIT_SOURCE_DIR) / "examples" / name,
                          Path("examples/") + name);
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

// But for 8-note.txt.
const TreeLines kTree{
    "1-tree/",
    "1-tree/letters/",
    "1-tree/letters/2024/",
    "1-tree/letters/2024/offer.tmp=A draft that nobody needs.\n",
    "1-tree/letters/2024/offer.txt=Our offer.\n",
    "1-tree/letters/2025/",
    "1-tree/letters/2025/reply.txt=Their reply.\n",
    "1-tree/letters/to-do/",
    "1-tree/photos/",
    "1-tree/photos/team.jpg=Not really a picture.\n",
    "1-tree/readme.txt=What the office keeps.\n",
    "2-flat/",
    "2-flat/offer.txt=Our offer.\n",
    "2-flat/readme.txt=What the office keeps.\n",
    "2-flat/reply.txt=Their reply.\n",
    "3-sync/",
    "3-sync/from/",
    "3-sync/from/new.txt=Not there yet.\n",
    "3-sync/from/newer.txt=Changed in summer.\n",
    "3-sync/from/older.txt=As it was in spring.\n",
    "3-sync/to/",
    "3-sync/to/new.txt=Not there yet.\n",
    "3-sync/to/newer.txt=Changed in summer.\n",
    "3-sync/to/older.txt=Changed at the destination, in summer.\n",
    "4-backup/",
    "4-backup/from/",
    "4-backup/from/report.txt=The report, second edition.\n",
    "4-backup/from/terms.txt=The terms.\n",
    "4-backup/to/",
    "4-backup/to/report.txt=The report, second edition.\n",
    "4-backup/to/report1.txt=The report, first edition.\n",
    "4-backup/to/terms.txt=The terms.\n",
    "5-without-tmp/",
    "5-without-tmp/letters/",
    "5-without-tmp/letters/2024/",
    "5-without-tmp/letters/2024/offer.txt=Our offer.\n",
    "5-without-tmp/letters/2025/",
    "5-without-tmp/letters/2025/reply.txt=Their reply.\n",
    "5-without-tmp/letters/to-do/",
    "5-without-tmp/photos/",
    "5-without-tmp/photos/team.jpg=Not really a picture.\n",
    "5-without-tmp/readme.txt=What the office keeps.\n",
    "6-tidy/",
    "6-tidy/keep.txt=To be kept.\n",
    "office/",
    "office/letters/",
    "office/letters/2024/",
    "office/letters/2024/offer.tmp=A draft that nobody needs.\n",
    "office/letters/2024/offer.txt=Our offer.\n",
    "office/letters/2025/",
    "office/letters/2025/reply.txt=Their reply.\n",
    "office/letters/to-do/",
    "office/photos/",
    "office/photos/team.jpg=Not really a picture.\n",
    "office/readme.txt=What the office keeps.\n",
};

// The files of the tree as the script step lists them.
std::string ExpectedNote()
{
    std::string note;
    for (const std::string& line : kTree) {
        const std::size_t content = line.find('=');
        if (content != std::string::npos) {
            note += "./" + line.substr(0, content) + '\n';
        }
    }
    return note;
}

TEST_F(Demo, LeavesExactlyTheTreeAndTheCountsThatItsReadmePromises)
{
    for (const char* round : {"first", "second"}) {
        const ProgramResult result = RunDemo();
        EXPECT_EQ(result.exitCode, 0) << round << '\n' << result.err;
        EXPECT_EQ(Counts(Log("demo")), kCounts) << round;
        EXPECT_EQ(ContentOf(Path("examples/work/8-note.txt")), ExpectedNote()) << round;
        fs::remove(Path("examples/work/8-note.txt"));
        EXPECT_EQ(ReadTree(Path("examples/work")), kTree) << round;
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
