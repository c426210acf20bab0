// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Fails every single file-system call of a batch that uses all operations, one call per run. No
// failure may lose a file, and the next run must reach the same result as a run without failures.

#include <algorithm>
#include <set>

#include "engine/run_fixture.h"

namespace quorbit {
namespace {

using namespace testing;

struct Verb {
    const char* name;
    Call call;
};

class EveryFailureTest : public RunFixture, public WithParamInterface<Verb> {
protected:
    void LayOut()
    {
        for (const char* folder : {"@/sources", "@/out", "@/junk", "@/gone"}) {
            std::filesystem::remove_all(Path(folder));
        }
        Write({"sources/copy/a=new", "sources/copy/sub/deep/b=new", "sources/copy/sub/link->a",
               "sources/copy/sub/pipe|", "sources/copy/empty/", "out/copy/a=old"});
        Write({"sources/sync/newer=new", "sources/sync/older=older", "sources/sync/fresh=new",
               "out/sync/newer=old", "out/sync/older=kept"});
        Write({"sources/backup/sub/a.txt=3", "sources/backup/b=2", "out/backup/sub/a.txt=2",
               "out/backup/sub/a1.txt=1", "out/backup/b=1"});
        Write({"sources/list/one/a=1", "sources/list/two/.b=2"});
        Write({"junk/a.tmp=1", "junk/sub/b.tmp=2", "junk/keep=3", "gone/sub/a=1", "gone/b=2"});
        for (const char* old : {"out/sync/newer", "sources/sync/older", "out/backup/sub/a.txt",
                                "out/backup/sub/a1.txt", "out/backup/b"}) {
            SetModified(Path("@/" + std::string(old)), 1000);
        }
    }
    [[nodiscard]] std::vector<CDirCopy> Batch() const
    {
        return {Entry(kTree, "@/sources/copy", "@/out/copy"),
                Entry(kTree | DCF_SYNC, "@/sources/sync", "@/out/sync"),
                Entry(kTree | DCF_INCREMENTAL, "@/sources/backup", "@/out/backup"),
                FolderList(DCF_ATTR_OR | DCF_ATTR_ARCHIVE, {"one", "two"}, "@/sources/list",
                           "@/out/new/list"),
                Entry(DCF_NO_ATTRS | DCF_SUBFOLDERS | DCF_DELETE, "@/junk", "", {"*.tmp"}),
                Entry(kAll | DCF_DELETE | DCF_DELETE_FOLDER, "@/gone", "")};
    }
    // The destination without the digits of numbered versions: a failure may shift the numbers.
    [[nodiscard]] TreeLines Reached() const
    {
        TreeLines tree = Tree("@/out");
        for (std::string& line : tree) {
            if (line.starts_with("backup/")) {
                std::erase_if(line, [&, i = 0](char c) mutable {
                    return line.find('=') > static_cast<std::size_t>(i++) && c >= '0' && c <= '9';
                });
            }
        }
        std::ranges::sort(tree);
        return tree;
    }

    void ExpectNothingLostBy(const Prepare& failing)
    {
        LayOut();
        const TreeLines sources = ReadTreeWithDetails(Path("@/sources"));
        (void)Run(Batch(), [&](FailingFileSystem& disk) {
            if (GetParam().call == Call::Rename) {  // used where there are no hard links
                disk.FailAlways(Call::Link, Error(ErrorKind::NotSupported));
            }
            if (m_bUsesStaging) {
                disk.UseStaging();
            }
            failing(disk);
        });
        EXPECT_THAT(ContentOf(Path("@/out/copy/a")), AnyOf("old", "new"));
        EXPECT_THAT(ContentOf(Path("@/out/sync/newer")), AnyOf("old", "new"));
        EXPECT_EQ(ContentOf(Path("@/out/sync/older")), "kept");
        EXPECT_THAT(Reached(),
                    IsSupersetOf({"backup/b=1", "backup/sub/a.txt=1", "backup/sub/a.txt=2"}));
        EXPECT_THAT(Tree("@"), Each(Not(HasSubstr(".quorbit-"))));

        const RunResult again = Run(Batch());
        EXPECT_EQ(Reached(), m_reachedWithoutFailure);
        EXPECT_EQ(Tree("@/junk"), (TreeLines{"keep=3", "sub/"}));
        EXPECT_FALSE(std::filesystem::exists(Path("@/gone")));
        EXPECT_LE(again.surface.errors.size(), 1U) << again.log;  // "gone" may be deleted already
        EXPECT_EQ(ReadTreeWithDetails(Path("@/sources")), sources);
    }

    void FailEveryCall();

    bool m_bUsesStaging = false;

    TreeLines m_reachedWithoutFailure;
};

TEST_P(EveryFailureTest, LosesNothing)
{
    const bool needsStaging = GetParam().call == Call::CreateStagingFolder;
    for (const unsigned lanes : {1U, 16U}) {
        SCOPED_TRACE(lanes);
        m_nLanes = lanes;
        m_bUsesStaging = false;
        if (!needsStaging) {
            FailEveryCall();
        }
    }
    m_bUsesStaging = true;
    FailEveryCall();
}

void EveryFailureTest::FailEveryCall()
{
    LayOut();
    EXPECT_EQ(Run(Batch()).counters, "copy 7 sync 1 didn't sync 1 backup 2 delete 3");
    m_reachedWithoutFailure = Reached();

    const Call call = GetParam().call;
    m_bSyncAtEnd = call == Call::SyncWritten || call == Call::Prepare ||
                   call == Call::MakeDurable || call == Call::Place;
    bool happened = true;
    for (int number = 1; happened && !HasFailure(); ++number) {
        SCOPED_TRACE(number);
        happened = false;
        ExpectNothingLostBy([&](FailingFileSystem& disk) {
            disk.FailAt(call, number, Error(ErrorKind::Other));
            disk.RunBefore(call, number, [&] { happened = true; });
        });
        EXPECT_TRUE(happened || number > 1) << "the batch never makes this call";
    }
    ExpectNothingLostBy(
        [&](FailingFileSystem& disk) { disk.FailAlways(call, Error(ErrorKind::AccessDenied)); });
}

using PowerCutTest = EveryFailureTest;

// Files that are new or replaced have their whole content, or the next run mends them.
TEST_P(PowerCutTest, LosesNothing)
{
    m_nLanes = GetParam().call == Call::Place ? 16 : 1;
    const auto layOut = [this] {
        LayOut();
        Write({"sources/sync/long=" + std::string(2'000'000, 'x')});
    };
    m_bSyncAtEnd = true;
    layOut();
    Run(Batch());
    m_reachedWithoutFailure = Reached();
    bool happened = true;
    for (int number = 1; happened && !HasFailure(); ++number) {
        SCOPED_TRACE(number);
        layOut();
        const RunResult cut = Run(Batch(), [&](FailingFileSystem& disk) {
            disk.CutPowerAt(GetParam().call, number, Path("@/out"));
        });
        happened = cut.counters.find("error") != std::string::npos;
        EXPECT_THAT(Reached(),
                    IsSupersetOf({"backup/b=1", "backup/sub/a.txt=1", "backup/sub/a.txt=2"}));
        Run(Batch());
        // A version may have got its number before the cut, and another one after it.
        const TreeLines reached = Reached();
        EXPECT_EQ(std::set(reached.begin(), reached.end()),
                  std::set(m_reachedWithoutFailure.begin(), m_reachedWithoutFailure.end()));
    }
}

INSTANTIATE_TEST_SUITE_P(At, PowerCutTest,
                         Values(Verb{"Place", Call::Place}, Verb{"CopyFile", Call::CopyFile},
                                Verb{"Link", Call::Link}, Verb{"SyncWritten", Call::SyncWritten}),
                         [](const auto& verb) { return verb.param.name; });

constexpr Verb kVerbs[] = {{"OpenFolder", Call::OpenFolder},
                           {"OpenSubfolder", Call::OpenSubfolder},
                           {"StillThere", Call::StillThere},
                           {"IsMountPoint", Call::IsMountPoint},
                           {"IsProtected", Call::IsProtected},
                           {"List", Call::List},
                           {"Next", Call::Next},
                           {"ReadDetails", Call::ReadDetails},
                           {"ReadAttributes", Call::ReadAttributes},
                           {"Probe", Call::Probe},
                           {"SetAttributes", Call::SetAttributes},
                           {"OpenSource", Call::OpenSource},
                           {"CopyFile", Call::CopyFile},
                           {"CreateStagingFolder", Call::CreateStagingFolder},
                           {"Prepare", Call::Prepare},
                           {"MakeDurable", Call::MakeDurable},
                           {"Place", Call::Place},
                           {"DeleteFile", Call::DeleteFile},
                           {"RemoveFolder", Call::RemoveFolder},
                           {"CreateFolder", Call::CreateFolder},
                           {"CopyFolderTime", Call::CopyFolderTime},
                           {"Link", Call::Link},
                           {"Rename", Call::Rename},
                           {"SweepLeftovers", Call::SweepLeftovers},
                           {"SyncWritten", Call::SyncWritten}};
INSTANTIATE_TEST_SUITE_P(Of, EveryFailureTest, ValuesIn(kVerbs),
                         [](const auto& verb) { return verb.param.name; });

}  // namespace
}  // namespace quorbit
