// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests which files a run finds and the destination paths that they get.

#include "engine/tree_walk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "engine/run_fixture.h"
#include "engine/source_queue.h"
#include "platform/leftover_name.h"

namespace quorbit {
namespace {

using namespace testing;

class TreeWalkTest : public RunFixture {};

TEST_F(TreeWalkTest, SubfoldersArePassedOverLandFlatOrAreRecreated)
{
    Write({"source/a=1", "source/sub/b=2", "source/sub/deep/c=3", "source/empty/"});
    EXPECT_EQ(Run({Entry(kAll, "@/source", "@/top")}).counters, "copy 1");
    EXPECT_EQ(Tree("@/top"), (TreeLines{"a=1"}));
    EXPECT_EQ(Run({Entry(kAll | DCF_SUBFOLDERS, "@/source", "@/flat")}).counters, "copy 3");
    EXPECT_EQ(Tree("@/flat"), (TreeLines{"a=1", "b=2", "c=3"}));
    EXPECT_EQ(Run({Entry(kTree, "@/source", "@/tree")}).counters, "copy 3");
    EXPECT_EQ(Tree("@/tree"), Tree("@/source"));
    // Masks do not apply to folders: they are created even if no file in them matches.
    const CDirCopy none =
        Entry(DCF_NO_ATTRS | DCF_SUBFOLDERS | DCF_PRESERVE_TREE, "@/source", "@/none", {"*.none"});
    EXPECT_EQ(Run({none}).counters, "");
    EXPECT_EQ(Tree("@/none"), (TreeLines{"empty/", "sub/", "sub/deep/"}));
}

TEST_F(TreeWalkTest, FlatFilesOfOneNameMeetEachOther)
{
    Write({"source/one/a=1", "source/two/a=2"});
    SetModified(Path("@/source/one/a"), 1000);
    SetModified(Path("@/source/two/a"), 2000);
    (void)Run({Entry(kAll | DCF_SUBFOLDERS | DCF_SYNC)});
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"a=2"}));  // in any listing order
}

TEST_F(TreeWalkTest, ListedFoldersLandUnderTheirNames)
{
    Write({"source/a/1.txt=1", "source/a/2.tmp=2", "source/a/sub/3.txt=3", "source/b/",
           "source/c/4.txt=4", "source/5.txt=5"});
    const CDirCopy flat = FolderList(DCF_NO_ATTRS | DCF_SUBFOLDERS, {"a", "none", "b"}, "@/source/",
                                     "@/dest/", {"*.txt"});
    const RunResult run = Run({flat});
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"a/", "a/1.txt=1", "a/3.txt=3", "b/", "none/"}));
    EXPECT_EQ(run.counters, "copy 2 error 1");
    EXPECT_THAT(run.log, HasSubstr(Path("Action: Create Folder.\r\nCurrent File: @/source/a/\r\n"
                                        "Destination File: @/dest/a/\r\n")));
    EXPECT_EQ(Run({FolderList(kTree, {})}).counters, "");
    // An entry with folder types is a folder list, regardless of its kind and flags.
    CDirCopy plain = flat;
    plain.m_nKind = DCK_TYPES;
    plain.m_dwFlags &= ~DCF_FOLDER_ITEMS;
    EXPECT_EQ(Run({plain}).counters, "copy 2 error 1");
    // Without folder types nothing in the folders is selected; only "none" is an error.
    CDirCopy untyped = flat;
    untyped.m_listFolderTypes.clear();
    EXPECT_EQ(Run({untyped}).counters, "error 1");
    EXPECT_EQ(Run({FolderList(DCF_NO_ATTRS | DCF_DELETE, {"a"})}).counters, "delete 2");
    EXPECT_EQ(Tree("@/source/a"), (TreeLines{"sub/", "sub/3.txt=3"}));
}

TEST_F(TreeWalkTest, MyComputerListsWholeVolumes)
{
    Write({"mounted/a=1", "mounted/sub/b=2", "volume/c=3"});
    m_drives["C:"] = Path("@/mounted");
    const RunResult run =
        Run({FolderList(kTree, {"C:\\", "c:", "Q:\\", Path("@/volume")}, "My Computer")});
    EXPECT_EQ(run.counters, "copy 5 error 1");
    const std::string mount = VolumeName(Path("@/volume"));
    EXPECT_THAT(mount, Not(HasSubstr("/")));
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"C/", "C/a=1", "C/sub/", "C/sub/b=2", "Q/", "c/", "c/a=1",
                                         "c/sub/", "c/sub/b=2", mount + "/", mount + "/c=3"}));
    EXPECT_THAT(run.log, HasSubstr("Current File: C:\\sub\\b\r\n"));
    // "My Computer" is case-sensitive and only valid in a folder list.
    EXPECT_EQ(Run({FolderList(kTree, {"C:\\"}, "my computer")}).counters, "error 1");
    EXPECT_EQ(Run({Entry(kTree, "My Computer")}).counters, "error 1");
}

// A folder named "\\nas\backup" in the current folder would receive the copies.
TEST_F(TreeWalkTest, NetworkPathsAreMappedAndOthersAreMissingDrives)
{
    m_drives["\\\\nas\\backup"] = Path("@/mounted");
    Write({"source/a=1", "mounted/b=2"});
    EXPECT_EQ(Run({Entry(kTree, "@/source", "\\\\NAS\\backup\\new\\sub")}).counters, "copy 1");
    EXPECT_EQ(Run({Entry(kTree, "\\\\nas\\backup", "@/dest")}).counters, "copy 2");
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"b=2", "new/", "new/sub/", "new/sub/a=1"}));
    for (const char* path : {"\\\\nas\\other\\x", "\\Save", "\\", "\\\\"}) {
        for (const RunResult& run :
             {Run({Entry(kTree, "@/source", path)}), Run({Entry(kTree, path, "@/dest2")})}) {
            EXPECT_THAT(run.counters, HasSubstr("error 1")) << path;
            EXPECT_THAT(run.log, HasSubstr("No such file or directory")) << path;
            EXPECT_FALSE(std::filesystem::exists(path)) << path;
        }
    }
}

// A name that is not recognised would be deleted by the first entry and not copied by the second.
TEST_F(TreeWalkTest, AnEntryWithUnconvertedTextIsAnErrorAndDoesNothing)
{
    Write({"source/keep=1", "source/other=2"});
    CDirCopy remove = Names(DCF_NO_ATTRS | DCF_DELETE | DCF_EXCLUDE, {"keep", "\xED\xB2\x81"});
    CDirCopy copy = Names(DCF_NO_ATTRS, {"keep", "\xED\xB2\x81"});
    remove.m_strSource = copy.m_strSource = "C:\\source";
    m_drives["C:"] = Path("@");
    const RunResult run = Run({remove, copy, Entry(kAll)});
    EXPECT_EQ(run.counters, "copy 2 error 2");
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"keep=1", "other=2"}));
    EXPECT_EQ(Tree("@/source"), (TreeLines{"keep=1", "other=2"}));
}

TEST_F(TreeWalkTest, DrivePathsIgnoreCaseIfOneOtherNameExists)
{
    m_drives["C:"] = Path("@");
    const auto counters = [this](const CDirCopy& entry) { return Run({entry}).counters; };
    Write({"Données/a=1", "Two/a=1", "TWO/a=1", "Gone/Sub/a=1", "other/"});
    EXPECT_EQ(counters(Entry(kTree, "C:\\DONNÉES", "C:\\Other\\New")), "copy 1");
    EXPECT_EQ(counters(FolderList(kTree, {"DONNÉES"}, "c:\\")), "copy 1");
    EXPECT_EQ(counters(Entry(kTree, "C:\\two", "C:\\none")), "error 1");  // ambiguous
    EXPECT_EQ(counters(Entry(kTree, "@/données", "@/none")), "error 1");  // native
    EXPECT_EQ(counters(Entry(kAll | DCF_DELETE | DCF_DELETE_FOLDER, "C:\\gone\\SUB", "")),
              "delete 1");
    EXPECT_EQ(Tree("@"), (TreeLines{"Données/", "Données/a=1", "Gone/", "TWO/", "TWO/a=1", "Two/",
                                    "Two/a=1", "dest/", "dest/DONNÉES/", "dest/DONNÉES/a=1",
                                    "none/", "other/", "other/New/", "other/New/a=1"}));
}

TEST_F(TreeWalkTest, ADestinationInsideTheSourceIsNotWalkedInto)
{
    Write({"source/a=1", "source/sub/b=2"});
    const TreeLines expected{"a=1", "inside/", "sub/", "sub/b=2"};
    for (const char* dest : {"@/source/inside/dest", "@/source/sub/../inside/dest/"}) {
        for (int round = 1; round <= 2; ++round) {
            const RunResult run = Run({Entry(kTree, "@/source", dest)});
            EXPECT_EQ(run.counters, "copy 2") << dest << ", round " << round;
            EXPECT_EQ(Tree("@/source/inside/dest"), expected);
        }
    }
    // A listed folder copied into a new subfolder of itself, twice.
    for (int round = 1; round <= 2; ++round) {
        EXPECT_EQ(Run({FolderList(kTree, {"sub"}, "@/source", "@/source/sub/x")}).counters,
                  "copy 1");
    }
    EXPECT_EQ(Tree("@/source/sub"), (TreeLines{"b=2", "x/", "x/sub/", "x/sub/b=2"}));
    // A deletion has no destination.
    EXPECT_EQ(Run({Entry(kTree | DCF_DELETE, "@/source", "@/source/sub")}).counters, "delete 5");
}

TEST_F(TreeWalkTest, AFileIsNotCopiedOntoItself)
{
    Write({"source/a=1", "source/sub/b=2", "link->source"});
    const TreeLines before = Tree("@");
    for (const char* dest : {"@/source", "@/source/sub/..", "@/link"}) {
        const RunResult run = Run({Entry(kAll | DCF_OVERWRITE_RO, "@/source", dest)});
        EXPECT_EQ(run.counters, "error 1");
        EXPECT_EQ(run.surface.errors[0], "Source and destination are the same file");
        EXPECT_EQ(Run({Entry(kAll | DCF_INCREMENTAL, "@/source", dest)}).counters, "");
        EXPECT_EQ(Tree("@"), before);
    }
    EXPECT_EQ(Run({FolderList(kTree, {"sub"}, "@/source", "@/source")}).counters, "error 1");
    EXPECT_EQ(Tree("@"), before);
}

TEST_F(TreeWalkTest, EveryKindOfItemAndNameComesAcross)
{
    Write({"source/to file->a", "source/to folder->..", "source/nowhere->none", "source/pipe|",
           "source/line\nend=1", "source/bad\xFF\xFEname=2", "source/back\\slash=3", "source/*.*=4",
           "source/ =5", "source/C:=6", "source/sub\n/x=7"});
    for (int round = 1; round <= 2; ++round) {
        EXPECT_EQ(Run({Entry(kTree)}).counters, "copy 11");
        EXPECT_EQ(Tree("@/dest"), Tree("@/source"));
    }
    EXPECT_EQ(Run({Entry(kTree | DCF_DELETE, "@/dest")}).counters, "delete 11");
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"sub\n/"}));
}

TEST_F(TreeWalkTest, NothingIsWrittenThroughALinkAtTheDestination)
{
    Write({"source/sub/deep/a=1", "elsewhere/deep/a=mine", "dest/", "dest/sub->../elsewhere"});
    const TreeLines elsewhere = Tree("@/elsewhere");
    const RunResult run = Run({Entry(kTree), FolderList(kTree, {"sub"})});
    EXPECT_EQ(Tree("@/elsewhere"), elsewhere);
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"sub->../elsewhere"}));
    EXPECT_THAT(run.counters, HasSubstr("error"));
    EXPECT_THAT(run.counters, Not(HasSubstr("copy")));
    // The destination of the entry itself may be a link, because the user chose it.
    EXPECT_EQ(Run({Entry(kAll, "@/source/sub/deep", "@/dest/sub")}).counters, "copy 1");
    EXPECT_EQ(ContentOf(Path("@/elsewhere/a")), "1");
}

TEST_F(TreeWalkTest, AFolderThatBecomesALinkWhileTheRunIsOnIsNotFollowed)
{
    for (const char* swapped : {"@/dest/sub", "@/source/sub"}) {
        for (const Call call :
             {Call::OpenSubfolder, Call::StillThere, Call::Probe, Call::CopyFile}) {
            for (int number = 1; number <= 2; ++number) {
                SCOPED_TRACE(Message() << swapped << static_cast<int>(call) << number);
                std::filesystem::remove_all(Path("@"));
                Write({"source/sub/a=1", "source/sub/b=2", "elsewhere/a=mine", "elsewhere/c=mine",
                       "dest/sub/"});
                const TreeLines elsewhere = Tree("@/elsewhere");
                bool happened = false;
                (void)Run({Entry(kTree)}, [&](FailingFileSystem& disk) {
                    disk.RunBefore(call, number, [&] {
                        happened = true;
                        std::filesystem::rename(Path(swapped), Path("@/moved"));
                        std::filesystem::create_directory_symlink(Path("@/elsewhere"),
                                                                  Path(swapped));
                    });
                });
                EXPECT_TRUE(happened || (call == Call::StillThere && number == 2));
                EXPECT_EQ(Tree("@/elsewhere"), elsewhere);
                EXPECT_THAT(Tree("@/dest"), Not(Contains(HasSubstr("mine"))));
            }
        }
    }
}

TEST_F(TreeWalkTest, LanesChangeNeitherTheLogNorTheResult)
{
    m_bSyncAtEnd = true;
    for (int i = 0; i < 400; ++i) {
        const std::string name =
            std::to_string(i % 7) + "/" + std::to_string(i % 3) + "/f" + std::to_string(i) + ".txt";
        Write({"source/" + name + "=new" + std::to_string(i)});
        if (i % 4 == 0) {
            Write({"old/" + name + "=old"});
            SetModified(Path("@/old/" + name), i % 8 == 0 ? 1000 : 4'000'000'000);
        }
    }
    Write({"source/1/link->0", "source/2/long=" + std::string(1'500'000, 'x'), "old/3/0/f3.txt/"});
    for (const std::uint32_t flags : {0U, DCF_SYNC + 0U, DCF_INCREMENTAL + 0U}) {
        std::string log;
        TreeLines tree;
        for (const unsigned lanes : {1U, 2U, 16U}) {
            SCOPED_TRACE(Message() << flags << " " << lanes);
            std::filesystem::remove_all(Path("@/dest"));
            std::filesystem::copy(Path("@/old"), Path("@/dest"),
                                  std::filesystem::copy_options::recursive);
            for (const auto& item : std::filesystem::recursive_directory_iterator(Path("@/old"))) {
                if (item.is_regular_file()) {
                    const auto to = std::filesystem::relative(item.path(), Path("@/old"));
                    std::filesystem::last_write_time(Path("@/dest") / to, item.last_write_time());
                }
            }
            m_nLanes = lanes;
            const RunResult run = Run({Entry(kTree | flags)});
            EXPECT_TRUE(log.empty() || run.log == log);
            EXPECT_TRUE(tree.empty() || Tree("@/dest") == tree);
            log = run.log;
            tree = Tree("@/dest");
        }
        EXPECT_THAT(log, HasSubstr("ERROR"));  // the folder with the name of a file
        EXPECT_GT(tree.size(), 400U);
    }
}

TEST_F(TreeWalkTest, ADestinationThatIsTakenAwayIsMadeAnew)
{
    Write({"source/sub/a=1", "source/sub/b=2"});
    const RunResult run = Run({Entry(kTree)}, [&](FailingFileSystem& disk) {
        disk.RunBefore(Call::CopyFile, 2, [&] { std::filesystem::remove_all(Path("@/dest")); });
    });
    EXPECT_EQ(run.counters, "copy 2");
    EXPECT_THAT(run.log, Not(HasSubstr("ERROR: ")));
    EXPECT_EQ(Tree("@/dest").size(), 2U);  // the folder and the second file
}

TEST_F(TreeWalkTest, AFolderThatStandsAlreadyIsNoError)
{
    // Another process creates the folder between the check and the creation.
    Write({"source/a=1"});
    const auto meanwhile = [&](FailingFileSystem& disk) {
        disk.RunBefore(Call::CreateFolder, 1, [&] { Write({"dest/"}); });
    };
    EXPECT_EQ(Run({Entry(kAll)}, meanwhile).counters, "copy 1");
    // Here no file has opened the destination yet; the error is that of the source.
    Write({"source/sub/", "dest/sub/"});
    std::filesystem::remove(Path("@/source/a"));
    const RunResult run = Run({Names(kTree, {})}, [](FailingFileSystem& disk) {
        disk.FailAt(Call::OpenSubfolder, 2, Error(ErrorKind::AccessDenied));
    });
    EXPECT_EQ(run.counters, "error 1");
}

TEST_F(TreeWalkTest, AFileThatVanishesIsAnErrorAndItsUnitIsTakenOff)
{
    const struct {
        std::uint32_t flags;
        Call call;
    } cases[] = {{0, Call::OpenSource},
                 {DCF_SYNC, Call::ReadDetails},
                 {DCF_SYNC, Call::OpenSource},
                 {DCF_DELETE, Call::DeleteFile},
                 {DCF_DELETE, Call::ReadDetails}};
    for (const auto& c : cases) {
        Write({"source/a=1", "dest/"});
        const RunResult run = Run({Entry(kAll | c.flags)}, [&](FailingFileSystem& disk) {
            disk.RunBefore(c.call, 1, [&] { std::filesystem::remove(Path("@/source/a")); });
        });
        EXPECT_EQ(run.counters, "error 1");
        EXPECT_THAT(run.log, HasSubstr("File.\r\nERROR: No such file or directory\r\n\r\n"
                                       "Current File: "));
        EXPECT_EQ(Tree("@"), (TreeLines{"dest/", "source/"}));
    }
}

TEST_F(TreeWalkTest, WhatCannotBeReadIsAnErrorAndNeverTakenForNothing)
{
    Write({"source/a=1", "source/b=2", "dest/"});
    const auto fail = [](Call call, int number) {
        return [=](FailingFileSystem& disk) { disk.FailAt(call, number, Error(ErrorKind::Other)); };
    };
    // A read error in a listing, here after the first file, is not the end of the folder.
    EXPECT_EQ(Run({Entry(kAll)}, fail(Call::Next, 5)).counters, "left 1 copy 1 error 1");
    const CDirCopy folder = Entry(kAll | DCF_DELETE | DCF_DELETE_FOLDER);
    EXPECT_EQ(Run({folder}, fail(Call::Next, 1)).counters, "delete 1 error 2");
    // Unknown attributes must not be treated as no attributes.
    const CDirCopy plain = Entry(DCF_ALL_TYPES | DCF_ATTR_AND | DCF_DELETE);
    CDirCopy plainFolder = plain;
    plainFolder.m_dwFlags |= DCF_DELETE_FOLDER;
    EXPECT_EQ(Run({plain}, fail(Call::ReadAttributes, 1)).counters, "error 1");
    // The first attributes read are those of the folder itself.
    EXPECT_EQ(Run({plainFolder}, fail(Call::ReadAttributes, 2)).counters, "delete 1 error 2");
    EXPECT_EQ(Tree("@/source"), (TreeLines{"a=1", "b=2"}));
}

TEST_F(TreeWalkTest, APathMayBeLongerThanTheSystemTakes)
{
    constexpr int kDepth = 20;
    const std::string name(250, 'd');
    Write({"source/"});
    int folder = ::open(Path("@/source").c_str(), O_PATH | O_CLOEXEC);
    for (int level = 0; level < kDepth; ++level) {
        ASSERT_EQ(::mkdirat(folder, name.c_str(), 0700), 0);
        const int next = ::openat(folder, name.c_str(), O_PATH | O_CLOEXEC);
        ::close(folder);
        folder = next;
    }
    ASSERT_EQ(::symlinkat("target", folder, "link"), 0);
    const int file = ::openat(folder, "file", O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
    ASSERT_EQ(::write(file, "x", 1), 1);
    ::close(file);
    ::close(folder);

    EXPECT_EQ(Run({Entry(kTree)}).counters, "copy 2");
    EXPECT_EQ(Tree("@/dest"), Tree("@/source"));
    EXPECT_EQ(Run({Entry(kTree | DCF_DELETE | DCF_DELETE_FOLDER)}).counters, "delete 1");
    EXPECT_EQ(Run({Entry(kTree | DCF_DELETE, "@/dest")}).counters, "delete 2");
}

TEST_F(TreeWalkTest, EmptyPathsDoNoHarm)
{
    Write({"here/a/1=x", "source/a/1=x", "source/2=x", "dest/keep=x"});
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(Path("@/here"));
    const TreeLines tree = Tree("@");
    const CDirCopy entries[] = {
        Entry(kTree, "", "@/dest"),
        Entry(kTree, "@/source", ""),
        Entry(kTree, "", ""),
        Entry(kAll | DCF_DELETE, ""),
        FolderList(kTree, {".."}, "@/source/a"),
        FolderList(kTree, {"a"}, "@/source", ""),
        FolderList(kTree | DCF_DELETE, {"a"}, "", ""),
        FolderList(kTree | DCF_DELETE, {""}, "@/source", ""),
    };
    for (const CDirCopy& entry : entries) {
        const RunResult run = Run({entry});
        EXPECT_THAT(run.counters, EndsWith("error 1")) << entry.m_strSource;
        EXPECT_EQ(Tree("@"), tree) << entry.m_strSource << " to " << entry.m_strDest;
    }
    std::filesystem::current_path(before);
}

TEST_F(TreeWalkTest, AnUnusableFolderIsOneErrorAndTheRestIsProcessed)
{
    const TreeLines source{"source/sub/1=x", "source/sub/2=x", "source/sub/deep/3=x", "source/b=x"};
    const std::tuple<TreeLines, CDirCopy, const char*, const char*> cases[] = {
        {{"dest/sub=file"}, Entry(kTree), "left 3 copy 2 error 1", "Not a directory"},
        {{"elsewhere/", "dest/sub->../elsewhere"},
         Entry(kTree),
         "left 3 copy 2 error 1",
         "Is a link"},
        {{"dest=file"}, Entry(kTree), "left 4 copy 1 error 1", "Not a directory"},
        {{"dest=file"}, Names(kAll, {"b"}), "left 1 copy 1 error 1", "Not a directory"},
        {{}, Entry(kTree, "@/source", "Q:\\a\\b\\"), "left 4 copy 1 error 1", "No such"},
        {{}, Entry(kTree, "@/source", "Q:\\"), "left 4 copy 1 error 1", "No such"},
        {{"dest=file"}, FolderList(kTree, {"sub", "sub/deep"}), "left 4 copy 1 error 1", "Not a"},
        {{}, FolderList(kTree, {"sub", "x", "y"}, "@/no/ne"), "copy 1 error 1", "No such file"},
        {{},
         FolderList(kTree | DCF_DELETE | DCF_DELETE_FOLDER, {"x", "y"}, "@/none", ""),
         "left 2 copy 1 error 1",
         "No such file"},
    };
    for (const auto& [before, entry, counters, reason] : cases) {
        std::filesystem::remove_all(Path("@"));
        Write(source);
        Write(before);
        Write({"next/a=1"});
        const RunResult run = Run({entry, Entry(kAll, "@/next", "@/healthy")});
        EXPECT_EQ(run.counters, counters) << entry.m_strDest;
        EXPECT_THAT(run.surface.errors, ElementsAre(HasSubstr(reason)));
        EXPECT_EQ(ContentOf(Path("@/healthy/a")), "1");
    }
}

TEST_F(TreeWalkTest, AFolderWithTheNameOfTheFileIsAnErrorAndStays)
{
    for (const std::uint32_t flags : {std::uint32_t{0}, DCF_SYNC + 0U, DCF_INCREMENTAL + 0U}) {
        for (const std::int64_t time : {std::int64_t{1000}, std::int64_t{4'000'000'000}}) {
            Write({"source/a.txt=new", "dest/a.txt/mine=1"});
            SetModified(Path("@/dest/a.txt"), time);
            const RunResult run = Run({Entry(kAll | flags)});
            EXPECT_EQ(run.counters, "error 1");
            EXPECT_THAT(run.surface.errors, ElementsAre("Is a directory"));
            EXPECT_EQ(Tree("@/dest"), (TreeLines{"a.txt/", "a.txt/mine=1"}));
        }
    }
}

TEST_F(TreeWalkTest, AFileThatIsSkippedAlthoughItDiffersIsAWarning)
{
    const std::tuple<const char*, int, std::size_t> cases[] = {{"dest/a=other size", 1, 1},
                                                               {"dest/a=other size", 0, 1},
                                                               {"dest/a=same", 1, 0},
                                                               {"dest/a->nowhere", 1, 1}};
    for (const std::uint32_t flags : {DCF_SYNC + 0U, DCF_INCREMENTAL + 0U}) {
        for (const auto& [dest, newer, warnings] : cases) {
            std::filesystem::remove_all(Path("@"));
            Write({"source/a=1234", dest});
            SetModified(Path("@/source/a"), 1000);
            SetModified(Path("@/dest/a"), 1000 + newer);
            const RunResult run = Run({Entry(kAll | flags)});
            EXPECT_EQ(run.counters, flags == DCF_SYNC ? "didn't sync 1" : "");
            EXPECT_EQ(run.surface.warnings.size(), warnings) << dest;
            EXPECT_EQ(run.problems.Kept().size(), warnings);
        }
    }
}

TEST_F(TreeWalkTest, LeftoversOfKilledRunsAreNeitherCopiedNorCountedAndGoAtTheDestination)
{
    const std::string leftover = ".quorbit-0123456789abcdef.tmp";
    const std::string staging = ".quorbit-0123456789abcdee.tmp/";
    Write({"source/a=1", "source/" + leftover + "=part", "source/" + staging + "a=part",
           "dest/" + leftover + "=part", "dest/" + staging + leftover + "=part",
           "dest/" + staging + MakeLeftoverName() + "->gone",
           "dest/" + staging + MakeLeftoverName() + "|", "dest/sub/" + leftover + "=part",
           "source/sub/"});
    // Its items would have another group, so nothing unfinished for it is in the staging folders.
    SetMode(Path("@/dest/sub"), 02755);
    EXPECT_EQ(Run({Entry(kTree)}).counters, "copy 1");
    EXPECT_EQ(Tree("@/dest"), (TreeLines{"a=1", "sub/"}));
    EXPECT_EQ(Run({Entry(kTree | DCF_DELETE | DCF_DELETE_FOLDER)}).counters, "delete 1");
}

TEST_F(TreeWalkTest, ReadingAheadKeepsTheOrder)
{
    for (int i = 0; i < 300; ++i) {
        Write({"source/" + std::to_string(i) + "=x"});
    }
    const auto files = MakeFileSystem();
    const auto folder = files->OpenFolder(Path("@/source"));
    std::vector<std::string> listed;
    FindData data;
    for (auto listing = files->List(**folder); *(*listing)->Next(data);) {
        listed.push_back(data.name);
    }

    ReadAheadPolicy policy;
    policy.Learn(false, 0);
    auto items = FolderItems::List(*files, **folder);
    const WalkRules rules{.list = {}, .dwFlags = kAll};
    SourceQueue queue(*files, **folder, *items, rules, policy);
    for (const std::string& name : listed) {
        PendingFile item;
        ASSERT_TRUE(*queue.Next(item));
        queue.Complete(item);
        EXPECT_EQ(item.data.name, name);
        EXPECT_EQ(item.source->Details().name, name);
    }
    PendingFile end;
    EXPECT_FALSE(*queue.Next(end));
}

}  // namespace
}  // namespace quorbit
