// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests the recursive deletion of folders, and of items that must never be deleted.

#include "engine/run_fixture.h"
#include "support/scoped_variable.h"

namespace quorbit {
namespace {

using namespace testing;

constexpr std::uint32_t kDeleteFolder = kAll | DCF_DELETE | DCF_DELETE_FOLDER;

class FolderDeletionTest : public RunFixture {
protected:
    [[nodiscard]] CDirCopy Delete(const std::string& folder) const
    {
        return Entry(kDeleteFolder, folder, "", {});
    }
};

TEST_F(FolderDeletionTest, TakesEverythingAndFollowsNoLink)
{
    Write({"source/a=1", "source/pipe|", "source/sub/.hidden=2", "source/empty/",
           "source/out->../keep", "source/up->..", "keep/a=1"});
    std::filesystem::permissions(Path("@/source/sub/.hidden"), std::filesystem::perms(0));
    const RunResult run = Run({Delete("@/source")});
    EXPECT_EQ(run.counters, "delete 1");
    EXPECT_EQ(Tree("@"), (TreeLines{"keep/", "keep/a=1"}));
}

TEST_F(FolderDeletionTest, ReadOnlyGuardsNeitherFilesNorFolders)
{
    Write({"source/sub/a=1"});
    for (const char* item : {"@/source/sub/a", "@/source/sub", "@/source"}) {
        std::filesystem::permissions(Path(item), std::filesystem::perms(0500));
    }
    EXPECT_EQ(Run({Delete("@/source")}).counters, "delete 1");
    EXPECT_EQ(Tree("@"), TreeLines{});
}

TEST_F(FolderDeletionTest, AFileThatTheFilterKeepsKeepsTheFoldersAboveIt)
{
    Write({"source/sub/.hidden=1", "source/sub/a=2", "source/b=3"});
    CDirCopy entry = Delete("@/source");
    entry.m_dwFlags = DCF_DELETE | DCF_DELETE_FOLDER | DCF_ATTR_AND | DCF_ATTR_ARCHIVE;
    const RunResult run = Run({entry});
    EXPECT_EQ(run.counters, "delete 1 error 2");
    EXPECT_EQ(Tree("@"), (TreeLines{"source/", "source/sub/", "source/sub/.hidden=1"}));
}

TEST_F(FolderDeletionTest, ListedFoldersCountOneEachWhateverTheyHold)
{
    Write({"source/a/1=x", "source/a/2=x", "source/b/", "source/c/3=x", "source/4=x"});
    const RunResult run = Run({FolderList(kDeleteFolder, {"a", "b", "none"})});
    EXPECT_THAT(run.log, HasSubstr("Total Count: 3\r\nDelete Count: 2\r\n"));
    EXPECT_EQ(run.counters, "delete 2 error 1");
    EXPECT_EQ(Tree("@/source"), (TreeLines{"4=x", "c/", "c/3=x"}));
}

TEST_F(FolderDeletionTest, WhatNamesNoFolderOfItsOwnDeletesNothing)
{
    Write({"source/a/1=x", "there/b=x", "link->there"});
    const TreeLines before = Tree("@");
    const CDirCopy entries[] = {Delete(""),
                                Delete("@/source/."),
                                Delete("@/source/a/.."),
                                Delete("@/source/./"),
                                Delete("@/none"),
                                Delete("@/link"),
                                Delete("X:\\"),
                                Delete("/"),
                                Delete("//"),
                                FolderList(kDeleteFolder, {""}),
                                FolderList(kDeleteFolder, {".", "..", "a/.."}),
                                FolderList(kDeleteFolder, {"a"}, ""),
                                FolderList(kDeleteFolder, {"", "/", "X:\\"}, "My Computer"),
                                FolderList(kDeleteFolder, {})};
    for (const CDirCopy& entry : entries) {
        const RunResult run = Run({entry});
        EXPECT_EQ(Tree("@"), before) << entry.m_strSource;
        const std::size_t errors = run.surface.errors.size();
        EXPECT_EQ(errors, entry.m_listFolderTypes.empty() ? 1U : entry.m_listItems.size())
            << entry.m_strSource;
    }
}

// A drive is treated like a mount point, which cannot be removed.
TEST_F(FolderDeletionTest, AWholeDriveLosesWhatItHoldsAndStays)
{
    m_drives["D:"] = Path("@/there");
    for (const CDirCopy& entry :
         {Delete("D:\\"), Delete("d:"), FolderList(kDeleteFolder, {"D:\\"}, "My Computer")}) {
        Write({"there/a/b=x", "there/c=x", "else=x"});
        const RunResult run = Run({entry});
        EXPECT_EQ(run.counters, "delete 1 error 1");
        EXPECT_EQ(Tree("@"), (TreeLines{"else=x", "there/"}));
    }
    m_drives["D:"] = "/";
    EXPECT_THAT(Run({Delete("D:\\")}).log, HasSubstr("protected"));
}

TEST_F(FolderDeletionTest, TheHomeFolderAndThoseAboveItAreRefused)
{
    Write({"above/home/a=1", "above/other/b=2", "linked->above"});
    const ScopedVariable home("HOME", Path("@/linked/home"));
    for (const char* folder : {"@/above/home", "@/above", "@/linked/home/", "@"}) {
        const RunResult run = Run({Delete(folder)});
        EXPECT_THAT(run.log,
                    HasSubstr(Path("Action: Delete Folder.\r\nCurrent File: ") + Path(folder)));
        EXPECT_THAT(run.log, HasSubstr("\r\nERROR: This folder is protected from being deleted "
                                       "as a whole\r\n\r\n"));
        EXPECT_EQ(run.counters, "error 1");
        EXPECT_EQ(Tree("@/above").size(), 4U);
    }
    EXPECT_EQ(Run({Delete("@/above/other")}).counters, "delete 1");
}

TEST_F(FolderDeletionTest, AProtectedFolderInsideTheTreeKeepsWhatItHolds)
{
    Write({"source/mounted/a=1"});
    const RunResult run = Run({Delete("@/source")}, [](FailingFileSystem& disk) {
        disk.FailAt(
            Call::IsProtected, 2,
            Error(ErrorKind::AccessDenied, "Operation not permitted"));  // as for the home folder
    });
    EXPECT_EQ(run.counters, "delete 1 error 2");
    EXPECT_EQ(Tree("@/source"), (TreeLines{"mounted/", "mounted/a=1"}));
}

TEST_F(FolderDeletionTest, WhatIsMountedInsideTheTreeIsNotDeleted)
{
    Write({"source/a=1", "source/mounted/b=1"});
    const RunResult run = Run({Delete("@/source")}, [](FailingFileSystem& disk) {
        disk.FailAlways(Call::IsMountPoint, Error(ErrorKind::Other));
    });
    EXPECT_EQ(run.counters, "delete 1 error 2");  // and that of the folder around it
    EXPECT_EQ(run.problems.Kept()[0].subject.source, Path("@/source/mounted/"));
    EXPECT_EQ(Tree("@/source"), (TreeLines{"mounted/", "mounted/b=1"}));
}

TEST_F(FolderDeletionTest, AFolderSwappedForALinkIsNotEntered)
{
    Write({"source/sub/deep/a=1", "keep/deep/a=1", "keep/b=2"});
    const TreeLines keep = Tree("@/keep");
    const auto swap = [&] {
        std::filesystem::rename(Path("@/source/sub"), Path("@/moved"));
        std::filesystem::create_directory_symlink(Path("@/keep"), Path("@/source/sub"));
    };
    // The folder is replaced before it is opened, before it is read, and before its content is
    // opened and read.
    const std::pair<Call, int> moments[] = {
        {Call::SetAttributes, 2}, {Call::OpenSubfolder, 2}, {Call::List, 2},        {Call::Next, 2},
        {Call::OpenSubfolder, 3}, {Call::DeleteFile, 1},    {Call::RemoveFolder, 1}};
    for (const auto& [call, number] : moments) {
        std::filesystem::remove_all(Path("@/source"));
        std::filesystem::remove_all(Path("@/moved"));
        Write({"source/sub/deep/a=1"});
        bool swapped = false;
        (void)Run({Delete("@/source")}, [&](FailingFileSystem& disk) {
            disk.RunBefore(call, number, [&] { swap(), swapped = true; });
        });
        EXPECT_TRUE(swapped) << static_cast<int>(call);
        EXPECT_EQ(Tree("@/keep"), keep) << static_cast<int>(call) << " " << number;
    }
}

}  // namespace
}  // namespace quorbit
