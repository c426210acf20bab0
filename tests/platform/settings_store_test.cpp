// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/settings_store.h"

#include <filesystem>
#include <limits>
#include <thread>

#include "support/folder_test.h"
#include "support/full_disk.h"

namespace quorbit {
namespace {

namespace fs = std::filesystem;

class SettingsStoreTest : public FolderTest {
protected:
    [[nodiscard]] std::string FilePath() const { return Path("sub/store.ini"); }
    [[nodiscard]] SettingsStore Store() const { return SettingsStore(FilePath()); }
    void WriteFile(const std::string& text) const { Write({"sub/store.ini=" + text}); }
    // Expects no leftover files beside the store.
    void ExpectAlone() const { EXPECT_EQ(Tree().size(), 2U); }
};

TEST_F(SettingsStoreTest, TellsMissingFromUnreadableAndReadOnly)
{
    EXPECT_EQ(Store().State(), StoreState::Missing);
    EXPECT_EQ(KindOf(Store().ReadText("A", "x")), ErrorKind::Missing);
    EXPECT_EQ(KindOf(Store().FirstSection()), ErrorKind::Missing);

    WriteFile("[A]\nx=1\n");
    EXPECT_EQ(Store().State(), StoreState::Usable);
    EXPECT_EQ(KindOf(Store().ReadText("A", "y")), ErrorKind::Missing);

    SetMode(FilePath(), 0444);
    EXPECT_EQ(Store().State(), StoreState::ReadOnly);
    EXPECT_EQ(*Store().ReadInt("A", "x"), 1);
    EXPECT_EQ(KindOf(Store().Write({{"A", "x", "2"}})), ErrorKind::AccessDenied);

    fs::remove(FilePath());
    fs::create_directory(FilePath());
    EXPECT_EQ(Store().State(), StoreState::Unreadable);
    EXPECT_EQ(KindOf(Store().ReadText("A", "x")), ErrorKind::IsAFolder);
}

TEST_F(SettingsStoreTest, AFileThatCannotBeReadIsNeverOverwritten)
{
    const std::string large = "[A]\nx=" + std::string(1 << 20, 'a') + "\n";
    WriteFile(large);
    EXPECT_EQ(Store().State(), StoreState::Unreadable);
    EXPECT_FALSE(Store().Write({{"A", "x", "2"}}).Ok());
    EXPECT_EQ(ContentOf(FilePath()), large);
}

TEST_F(SettingsStoreTest, AFullDiskLosesNoValue)
{
    std::vector<SettingsValue> values;
    for (int i = 0; i < 40; ++i) {
        values.push_back({"A", "name" + std::to_string(i), "value"});
    }
    ASSERT_TRUE(Store().Write(values).Ok());
    const std::string before = ContentOf(FilePath());
    ASSERT_GT(before.size(), 500U);
    const auto write = [&] { return Store().Write({{"A", "new", "x"}}); };
    for (const rlim_t limit : {0, 1, 200, 500}) {
        EXPECT_EQ(KindOf(OnFullDisk(limit, write)), ErrorKind::DiskFull) << limit;
        EXPECT_EQ(ContentOf(FilePath()), before) << limit;
    }
    ExpectAlone();
    EXPECT_TRUE(write().Ok());
    EXPECT_EQ(ContentOf(FilePath()), before + "new=x\n");
}

TEST_F(SettingsStoreTest, AKillLeavesTheOldValuesOrTheNewOnes)
{
    const std::string padding(3000, 'p');
    ASSERT_TRUE(Store().Write({{"A", "first", "0"}, {"A", "pad", padding}, {"A", "last", "0"}}));
    for (int round = 0; round < 20; ++round) {
        KillWhileItWorks(2000 + 700 * round, [this, i = round * 100000]() mutable {
            const std::string text = std::to_string(++i);
            return Store().Write({{"A", "first", text}, {"A", "last", text}}).Ok();
        });
        const auto first = Store().ReadInt("A", "first");
        ASSERT_TRUE(first.Ok());
        EXPECT_EQ(*first, *Store().ReadInt("A", "last"));
        EXPECT_EQ(*Store().ReadText("A", "pad"), padding);
    }
    EXPECT_NE(*Store().ReadInt("A", "first"), 0) << "another process sees what one has written";
    ASSERT_TRUE(Store().Write({{"A", "first", "done"}}).Ok());
    ExpectAlone();
}

TEST_F(SettingsStoreTest, WritersAtTheSameTimeLoseNothingOfEachOther)
{
    std::vector<std::jthread> writers;
    for (const char* writer : {"a", "b", "c", "d"}) {
        writers.emplace_back([this, writer] {
            for (int i = 0; i < 15; ++i) {
                (void)Store().Write({{"A", writer + std::to_string(i), "x"}}).Ok();
            }
        });
    }
    writers.clear();
    EXPECT_EQ(Store().ReadSection("A")->size(), 60U);
}

TEST_F(SettingsStoreTest, StoresAllOfTheValuesOrNone)
{
    const std::string nul("a\0b", 3);
    EXPECT_FALSE(Store().Write({{"A", "x", "1"}, {"A", "y", nul}}).Ok());
    EXPECT_FALSE(Store().Write({{"A", nul, "1"}}).Ok());
    EXPECT_EQ(Store().State(), StoreState::Missing);
    EXPECT_FALSE(SettingsStore("").Write({{"A", "x", "1"}}).Ok());
    EXPECT_EQ(SettingsStore("").State(), StoreState::Missing);
}

TEST_F(SettingsStoreTest, ReadsWholeNumbersOf32BitsOnly)
{
    constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
    const std::pair<const char*, std::optional<std::int32_t>> cases[] = {
        {"2147483647", std::numeric_limits<std::int32_t>::max()},
        {"0", 0},
        {"-1", -1},
        {"16400", 16400},
        {"-2147483648", kLowest},
        {"4294967295", {}},
        {"4294967296", {}},
        {"-2147483649", {}},
        {"2147483648", {}},
        {"", {}},
        {"1x", {}},
        {"0x10", {}},
        {"99999999999999999999", {}}};
    for (const auto& [text, expected] : cases) {
        WriteFile(std::string("[A]\nx=") + text + "\n");
        const auto number = Store().ReadInt("A", "x");
        EXPECT_EQ(number ? std::optional(*number) : std::nullopt, expected) << text;
    }
}

}  // namespace
}  // namespace quorbit
