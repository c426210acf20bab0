// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests the numbered versions of incremental backups.

#include "engine/backup_rotation.h"
#include "engine/run_fixture.h"

namespace quorbit {
namespace {

TEST(NumberedName, StandsBeforeTheFirstDot)
{
    const std::tuple<const char*, int, const char*> cases[] = {
        {"report.doc", 1, "report1.doc"},
        {"archive.tar.gz", 12, "archive12.tar.gz"},
        {"README", 1, "1README"},
        {".profile", 1, "1.profile"},
        {"a.", 198, "a198."},
        {"a1.txt", 1, "a11.txt"}};
    for (const auto& [name, number, expected] : cases) {
        EXPECT_EQ(NumberedName(name, number), expected);
    }
}

class RotateBackupTest : public RunFixture {
protected:
    // Writes a destination file with content "old" and a newer source file "new" of the same name.
    void WritePair(const std::string& name, std::uint32_t mode = 0644)
    {
        Write({"source/" + name + "=new", "dest/" + name + "=old"});
        SetModified(Path("@/dest/" + name), 1000);
        std::filesystem::permissions(Path("@/dest/" + name), std::filesystem::perms(mode));
    }
    RunResult Backup(const Prepare& prepare = nullptr)
    {
        return Run({Entry(kAll | DCF_INCREMENTAL)}, prepare);
    }
};

TEST_F(RotateBackupTest, TheLowestNumberIsTakenThatIsSurelyFree)
{
    WritePair("a.txt");
    Write({"dest/a1.txt=v1", "dest/a2.txt->nowhere", "dest/a4.txt=v4"});
    // Skips a number that cannot be checked and one that another process takes in the meantime. The
    // first probe is that of the file itself.
    const auto prepare = [&](FailingFileSystem& disk) {
        disk.FailAt(Call::Probe, 2, Error(ErrorKind::Other));
        disk.RunBefore(Call::Link, 1, [&] { Write({"dest/a3.txt=theirs"}); });
    };
    EXPECT_EQ(Backup(prepare).counters, "backup 1");
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"a.txt=new", "a1.txt=v1", "a2.txt->nowhere",
                                         "a3.txt=theirs", "a4.txt=v4", "a5.txt=old"}));
    std::filesystem::remove_all(Path("@/dest"));
    WritePair("a.txt");
    Write({"dest/a1.txt=v1", "dest/a3.txt=v3"});
    EXPECT_EQ(Backup().counters, "backup 1");
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"a.txt=new", "a1.txt=v1", "a2.txt=old", "a3.txt=v3"}));
}

TEST_F(RotateBackupTest, NumbersEndAt198)
{
    WritePair("a.txt");
    for (int number = 1; number <= 197; ++number) {
        Write({"dest/" + NumberedName("a.txt", number) + "=v"});
    }
    EXPECT_EQ(Backup().counters, "backup 1");
    EXPECT_EQ(ContentOf(Path("@/dest/a198.txt")), "old");

    WritePair("a.txt");
    const RunResult run = Backup();
    EXPECT_EQ(run.counters, "backup 1");
    EXPECT_THAT(run.log, testing::HasSubstr("Action: Didn't backup file. Backup max reached.\r\n"));
    EXPECT_THAT(run.surface.warnings, testing::ElementsAre(testing::HasSubstr("replaced")));
    EXPECT_EQ(Tree("@/dest").size(), 199U);
    EXPECT_EQ(ContentOf(Path("@/dest/a.txt")), "new");
    EXPECT_EQ(ContentOf(Path("@/dest/a198.txt")), "old");
}

TEST_F(RotateBackupTest, AReadOnlyVersionKeepsItsAttributeUnderItsNumber)
{
    WritePair("a.txt", 0444);
    EXPECT_EQ(Backup().counters, "backup 1");
    EXPECT_EQ(ModeOf(Path("@/dest/a1.txt")), 0444U);
    EXPECT_EQ(ModeOf(Path("@/dest/a.txt")), ModeOf(Path("@/source/a.txt")));
    // Without a free number the read-only file stays under its plain name and blocks the copy.
    for (int number = 2; number <= 198; ++number) {
        Write({"dest/" + NumberedName("a.txt", number) + "=v"});
    }
    std::filesystem::remove(Path("@/dest/a.txt"));
    WritePair("a.txt", 0444);
    EXPECT_EQ(Backup().counters, "error 1");
    EXPECT_EQ(ContentOf(Path("@/dest/a.txt")), "old");
}

// The file keeps its plain name and its content, and no number is left behind.
TEST_F(RotateBackupTest, AFailureAtAnyMomentLeavesTheOldFileAsItWas)
{
    const auto noLinks = [](FailingFileSystem& disk) {
        disk.FailAlways(Call::Link, Error(ErrorKind::AccessDenied));
    };
    const auto failing = [](Call call) {
        return
            [call](FailingFileSystem& disk) { disk.FailAlways(call, Error(ErrorKind::DiskFull)); };
    };
    const std::tuple<std::string, Prepare, Prepare> cases[] = {
        {"a.txt", noLinks, failing(Call::Rename)},
        {"a.txt", nullptr, failing(Call::CopyFile)},
        {"a.txt", noLinks, failing(Call::CopyFile)},
        {"a.txt", nullptr, failing(Call::OpenSource)},
        {"a.txt", noLinks, failing(Call::OpenSource)},
        // Not all numbers are in use, but none is surely free.
        {"a.txt", nullptr,
         [](FailingFileSystem& disk) {
             for (int number = 2; number <= 199; ++number) {
                 disk.FailAt(Call::Probe, number, Error(ErrorKind::Other));
             }
         }},
        {std::string(251, 'n') + ".txt", nullptr, [](FailingFileSystem&) {}},
    };
    for (const auto& [name, links, fail] : cases) {
        std::filesystem::remove_all(Path("@"));
        WritePair(name);
        const RunResult run = Backup([&, links = links, fail = fail](FailingFileSystem& disk) {
            if (links) {
                links(disk);
            }
            fail(disk);
        });
        EXPECT_EQ(run.counters, "error 1");
        EXPECT_THAT(run.log, testing::HasSubstr("Action: Incrementing backup.\r\nERROR: "));
        EXPECT_EQ(Tree("@/dest"), (TreeLines{name + "=old"}));
        EXPECT_TRUE(run.surface.warnings.empty());
    }
}

TEST_F(RotateBackupTest, TheNumberStaysIfItIsTheOnlyNameOfTheOldVersion)
{
    for (const bool links : {true, false}) {
        std::filesystem::remove_all(Path("@"));
        WritePair("a.txt");
        const RunResult run = Backup([&](FailingFileSystem& disk) {
            disk.FailAlways(Call::CopyFile, Error(ErrorKind::Other));
            // The copy failed, but not before the new file took its place.
            disk.RunBefore(Call::CopyFile, 1, [&] {
                std::filesystem::remove(Path("@/dest/a.txt"));
                Write({"dest/a.txt=new"});
            });
            if (!links) {
                disk.FailAlways(Call::Link, Error(ErrorKind::AccessDenied));
            }
        });
        EXPECT_EQ(run.counters, "error 1");
        EXPECT_EQ(Tree("@/dest"), (TreeLines{"a.txt=new", "a1.txt=old"}));
        EXPECT_EQ(run.surface.warnings.size(), links ? 0U : 1U);
    }
}

TEST_F(RotateBackupTest, ANumberThatIsANameOfTheSourceIsPassedOver)
{
    WritePair("a.txt");
    Write({"source/a1.txt=first", "source/a2.txt=second"});
    for (const char* name : {"a1.txt", "a2.txt"}) {
        SetModified(Path(std::string("@/source/") + name), 500);  // older than the version
    }
    EXPECT_EQ(Backup().counters, "copy 2 backup 1");
    EXPECT_EQ(Tree("@/dest"),
              (TreeLines{"a.txt=new", "a1.txt=first", "a2.txt=second", "a3.txt=old"}));
}

TEST_F(RotateBackupTest, AFolderThatCouldNotBeOpenedAtOnceDoesNotPassForAnEmptyOne)
{
    for (int first = 1; first <= 6; ++first) {
        for (int last = first; last <= first + 3; ++last) {
            WritePair("sub/a.txt");
            const std::vector<CDirCopy> entries{Entry(kTree | DCF_INCREMENTAL)};
            (void)Run(entries, [&](FailingFileSystem& disk) {
                for (int number = first; number <= last; ++number) {
                    disk.FailAt(Call::OpenSubfolder, number, Error(ErrorKind::TooManyOpen));
                }
            });
            (void)Run(entries);
            EXPECT_EQ(Tree("@/dest/sub"), (TreeLines{"a.txt=new", "a1.txt=old"}))
                << first << " to " << last;
            std::filesystem::remove_all(Path("@/dest"));
        }
    }
}

}  // namespace
}  // namespace quorbit
