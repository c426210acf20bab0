// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/folder_reader.h"

#include <atomic>
#include <chrono>

#include "platform/posix/mount_table.h"
#include "support/dead_mount.h"
#include "support/shell_test.h"
#include "support/wait.h"

namespace quorbit {
namespace {

using namespace std::chrono_literals;
using testing::UnorderedElementsAre;
using Clock = std::chrono::steady_clock;

constexpr auto kLong = 30s;

std::vector<std::string> NamesOf(const FolderBatch& batch)
{
    std::vector<std::string> names;
    for (const FolderItem& item : batch.items) {
        names.push_back(item.name);
    }
    return names;
}

class FolderReaderTest : public ShellTest {};

TEST_F(FolderReaderTest, HandsOverWhatWasAskedFor)
{
    Write({"sub/", "a.txt=hello"});
    FolderReader reader(BindTemp(), {kEverything, SFGAO_FOLDER, true, true});
    ASSERT_TRUE(reader.WaitForEnd(kLong));
    const FolderBatch batch = reader.Take();
    EXPECT_TRUE(batch.ended);
    EXPECT_FALSE(batch.error);
    ASSERT_THAT(NamesOf(batch), UnorderedElementsAre("sub", "a.txt"));
    const FolderItem& folder = batch.items[batch.items[0].name == "sub" ? 0 : 1];
    const FolderItem& file = batch.items[batch.items[0].name == "sub" ? 1 : 0];
    EXPECT_EQ(folder.attributes, SFGAO_FOLDER) << "and no bit that was not asked for";
    EXPECT_FALSE(folder.details);
    EXPECT_EQ(folder.type, "Folder");
    EXPECT_EQ(file.attributes, 0U);
    EXPECT_EQ(file.details.value().size, 5U);
    EXPECT_FALSE(file.type.empty());

    FolderReader plain(BindTemp(), {.flags = SHCONTF_NONFOLDERS});
    ASSERT_TRUE(plain.WaitForEnd(kLong));
    const FolderItem item = plain.Take().items.at(0);
    EXPECT_TRUE(item.type.empty() && !item.details);
}

TEST_F(FolderReaderTest, EndsOnlyWithTheLastItemOrWithTheReason)
{
    Write({"a=", "b=", "c="});
    FolderReader reader(BindTemp(), {kEverything});
    FolderReader missing(BindTemp("missing"), {kEverything});
    ASSERT_TRUE(reader.WaitForEnd(kLong) && missing.WaitForEnd(kLong));
    const FolderBatch first = reader.Take(2);
    const FolderBatch second = reader.Take(2);
    EXPECT_TRUE(first.items.size() == 2 && !first.ended);
    EXPECT_TRUE(second.items.size() == 1 && second.ended);
    const FolderBatch failed = missing.Take();
    EXPECT_TRUE(failed.ended);
    EXPECT_EQ(failed.error.value().Kind(), ErrorKind::Missing);
}

TEST_F(FolderReaderTest, LeavesAThreadThatHangsBehindAndHearsNoMoreOfIt)
{
    // Reading the mount table blocks, and with it the desktop.
    const auto gate = std::make_shared<std::atomic<bool>>(false);
    auto desktop = MakeDesktopFolder({[gate] {
                                          gate->wait(false);
                                          return ParseMountTable("");
                                      },
                                      Path(),
                                      {}});
    const std::weak_ptr<const ShellFolder> watch = desktop;
    std::atomic<int> news{0};
    {
        FolderReader reader(std::move(desktop), {kEverything}, [&news] { ++news; });
        EXPECT_FALSE(reader.WaitForEnd(50ms));
    }
    EXPECT_FALSE(watch.expired()) << "the thread still hangs";
    const int newsBefore = news;
    *gate = true;
    gate->notify_all();
    EXPECT_TRUE(Eventually([&] { return watch.expired(); })) << "it ends as soon as it can";
    EXPECT_EQ(news, newsBefore) << "and tells nobody";
}

TEST_F(FolderReaderTest, ADeadServerHoldsUpNothingButItsOwnFolder)
{
    Write({"mnt/dead/", "mnt/other/", "mnt/file="});
    auto dead = std::make_unique<DeadMount>(Path("mnt/dead"));
    if (!dead->IsMounted()) {
        GTEST_SKIP() << "no such mounts here";
    }
    const auto desktop = MakeDesktopFolder({ReadMountTable, Path("mnt"), {}});
    for (const std::uint32_t flags : {kEverything, SHCONTF_FOLDERS | SHCONTF_NONFOLDERS}) {
        FolderReader reader(desktop, {flags, SFGAO_HASSUBFOLDER, true, true});
        ASSERT_TRUE(reader.WaitForEnd(kLong)) << "the folder that it is mounted in";
        EXPECT_THAT(
            NamesOf(reader.Take()),
            UnorderedElementsAre("My Computer", "Network Neighborhood", "dead", "other", "file"));
    }
    const auto computer = *desktop->BindToObject(*desktop->ParseDisplayName("::My Computer"));
    FolderReader drives(computer, {kEverything});
    ASSERT_TRUE(drives.WaitForEnd(kLong)) << "the list of drives";
    EXPECT_THAT(NamesOf(drives.Take()), testing::Contains("x on dead (" + Path("mnt/dead") + ")"));

    auto folder = *computer->BindToObject(
        CShellPidl::GetNextItemId(*desktop->ParseDisplayName(Path("mnt/dead/"))));
    const std::weak_ptr<const ShellFolder> watch = folder;
    const auto begin = Clock::now();
    EXPECT_FALSE(FolderReader(std::move(folder), {kEverything}).WaitForEnd(100ms));
    EXPECT_LT(Clock::now() - begin, 5s);
    EXPECT_FALSE(watch.expired()) << "it has to hang, or this proves nothing";
    dead.reset();
    EXPECT_TRUE(Eventually([&] { return watch.expired(); }));
}

}  // namespace
}  // namespace quorbit
