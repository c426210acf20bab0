// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/folder_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "dead_mount.h"
#include "platform/mount_table.h"
#include "shell_fixture.h"

namespace quorbit {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::SizeIs;
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

template <class Condition>
bool Eventually(Condition condition)
{
    for (const auto end = Clock::now() + kLong; Clock::now() < end;) {
        if (condition()) {
            return true;
        }
        std::this_thread::sleep_for(1ms);
    }
    return false;
}

class FolderReaderTest : public ShellTest {};

TEST_F(FolderReaderTest, HandsOverWhatWasAskedFor)
{
    WriteTree(Path(), {"sub/", "a.txt=hello"});
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
    EXPECT_TRUE(item.type.empty());
    EXPECT_FALSE(item.details);
}

TEST_F(FolderReaderTest, TellsWhyItEnded)
{
    FolderReader reader(BindTemp("missing"), {kEverything});
    ASSERT_TRUE(reader.WaitForEnd(kLong));
    const FolderBatch batch = reader.Take();
    EXPECT_TRUE(batch.ended);
    ASSERT_TRUE(batch.error);
    EXPECT_EQ(batch.error->Kind(), ErrorKind::Missing);
}

TEST_F(FolderReaderTest, EndsOnlyWithTheLastItem)
{
    WriteTree(Path(), {"a=", "b=", "c="});
    FolderReader reader(BindTemp(), {kEverything});
    ASSERT_TRUE(reader.WaitForEnd(kLong));
    const FolderBatch first = reader.Take(2);
    EXPECT_THAT(first.items, SizeIs(2));
    EXPECT_FALSE(first.ended);
    const FolderBatch second = reader.Take(2);
    EXPECT_THAT(second.items, SizeIs(1));
    EXPECT_TRUE(second.ended);
}

// A folder whose walk gives one item, then waits for the test, then gives another.
class GatedFolder final : public ShellFolder {
public:
    struct Gate {
        std::atomic<bool> open{false};
        std::atomic<int> given{0};
    };
    GatedFolder(ShellFolderPtr real, std::shared_ptr<Gate> gate)
        : m_real(std::move(real)), m_gate(std::move(gate))
    {
    }

    std::unique_ptr<ShellEnumerator> EnumObjects(std::uint32_t flags,
                                                 std::stop_token) const override
    {
        // Deaf to stops, as a call to the system is.
        return std::make_unique<Walk>(m_real->EnumObjects(flags, {}), m_gate);
    }
    Result<std::uint32_t> GetAttributesOf(ItemIdView id, std::uint32_t mask) const override
    {
        return m_real->GetAttributesOf(id, mask);
    }
    Result<std::string> GetDisplayNameOf(ItemIdView id, std::uint32_t flags) const override
    {
        return m_real->GetDisplayNameOf(id, flags);
    }
    Result<ShellFolderPtr> BindToObject(ItemIdView id) const override
    {
        return m_real->BindToObject(id);
    }
    Result<int> CompareIDs(ItemIdView a, ItemIdView b) const override
    {
        return m_real->CompareIDs(a, b);
    }
    Result<ItemIdList> ParseDisplayName(std::string_view name) const override
    {
        return m_real->ParseDisplayName(name);
    }

private:
    class Walk final : public ShellEnumerator {
    public:
        Walk(std::unique_ptr<ShellEnumerator> real, std::shared_ptr<Gate> gate)
            : m_real(std::move(real)), m_gate(std::move(gate))
        {
        }
        Result<std::optional<ItemIdList>> Next() override
        {
            while (m_gate->given > 0 && !m_gate->open) {
                std::this_thread::sleep_for(1ms);
            }
            ++m_gate->given;
            return m_real->Next();
        }
        Result<FindData> ReadDetails() override { return m_real->ReadDetails(); }

    private:
        std::unique_ptr<ShellEnumerator> m_real;
        std::shared_ptr<Gate> m_gate;
    };

    ShellFolderPtr m_real;
    std::shared_ptr<Gate> m_gate;
};

TEST_F(FolderReaderTest, GivesTheFirstItemsWhileTheRestHangsAndLeavesTheThreadBehind)
{
    WriteTree(Path(), {"a=", "b=", "c="});
    auto gate = std::make_shared<GatedFolder::Gate>();
    auto folder = std::make_shared<const GatedFolder>(BindTemp(), gate);
    const std::weak_ptr<const ShellFolder> watch = folder;
    std::atomic<int> news{0};
    {
        FolderReader reader(std::move(folder), {kEverything}, [&news] { ++news; });
        FolderBatch batch;
        ASSERT_TRUE(Eventually([&] { return !(batch = reader.Take()).items.empty(); }));
        EXPECT_THAT(batch.items, SizeIs(1));
        EXPECT_FALSE(batch.ended);
        EXPECT_FALSE(reader.WaitForEnd(20ms));
        EXPECT_TRUE(Eventually([&] { return news == 1; }));
    }
    EXPECT_FALSE(watch.expired()) << "the thread still hangs";
    const int newsBefore = news;
    gate->open = true;
    EXPECT_TRUE(Eventually([&] { return watch.expired(); })) << "it ends as soon as it can";
    EXPECT_EQ(news, newsBefore) << "and tells nobody";
    EXPECT_LE(gate->given, 2) << "without reading on";
}

TEST_F(FolderReaderTest, AHugeFolderGivesItsFirstItemsLongBeforeItsLast)
{
    constexpr std::size_t kFiles = 100'000;
    WriteTree(Path(), {"huge/", "one=", "two="});
    for (std::size_t i = 0; i < kFiles; ++i) {
        // Second names of two files are made faster than files; a file cannot have so many.
        const std::string name = Path("huge/file" + std::to_string(i) + ".dat");
        ASSERT_EQ(::link(Path(i % 2 == 0 ? "one" : "two").c_str(), name.c_str()), 0);
    }
    const FolderRequest request{kEverything, 0xF0000170, true, true};
    const auto begin = Clock::now();
    {
        FolderReader reader(BindTemp("huge"), request);
        FolderBatch batch;
        ASSERT_TRUE(Eventually([&] { return !(batch = reader.Take()).items.empty(); }));
        EXPECT_FALSE(batch.ended);
    }
    RecordProperty("first items, us", std::to_string((Clock::now() - begin) / 1us));

    FolderReader reader(BindTemp("huge"), request);
    EXPECT_TRUE(reader.WaitForEnd(120s));
    RecordProperty("all items, ms", std::to_string((Clock::now() - begin) / 1ms));
    EXPECT_THAT(reader.Take().items, SizeIs(kFiles));
}

TEST_F(FolderReaderTest, ADeadServerHoldsUpNothingButItsOwnFolder)
{
    WriteTree(Path(), {"mnt/dead/", "mnt/other/", "mnt/file="});
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
    {
        FolderReader reader(std::move(folder), {kEverything});
        EXPECT_FALSE(reader.WaitForEnd(100ms));
    }
    EXPECT_LT(Clock::now() - begin, 5s);
    EXPECT_FALSE(watch.expired()) << "it has to hang, or this proves nothing";
    dead.reset();
    EXPECT_TRUE(Eventually([&] { return watch.expired(); }));
}

}  // namespace
}  // namespace quorbit
