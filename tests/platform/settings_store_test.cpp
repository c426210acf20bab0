// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/settings_store.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "support/scoped_file_size_limit.h"
#include "support/scoped_variable.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

namespace fs = std::filesystem;

class SettingsStoreTest : public testing::Test {
protected:
    [[nodiscard]] std::string FilePath() const { return m_folder.Path() + "/sub/store.ini"; }
    [[nodiscard]] SettingsStore Store() const { return SettingsStore(FilePath()); }

    void WriteFile(const std::string& text) const
    {
        WriteTree(m_folder.Path(), {"sub/"});
        WriteContent(FilePath(), text);
    }
    // Nothing is left beside the file.
    void ExpectAlone() const { EXPECT_EQ(ReadTree(m_folder.Path()).size(), 2U); }

    TempFolder m_folder;
};

TEST_F(SettingsStoreTest, AnotherProcessSeesWhatOneHasWritten)
{
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const bool done = Store().Write({{"A", "x", "one\xFF\n"}, {"B", "y", ""}}).Ok();
        ::_exit(done ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    EXPECT_EQ(*Store().ReadText("A", "x"), "one\xFF\n");
    EXPECT_EQ(*Store().ReadText("b", "Y"), "");
    EXPECT_EQ(*Store().FirstSection(), "A");
}

TEST_F(SettingsStoreTest, TellsMissingFromUnreadableAndReadOnly)
{
    EXPECT_EQ(Store().State(), StoreState::Missing);
    EXPECT_EQ(Store().ReadText("A", "x").GetError().Kind(), ErrorKind::Missing);
    EXPECT_EQ(Store().FirstSection().GetError().Kind(), ErrorKind::Missing);

    WriteFile("[A]\nx=1\n");
    EXPECT_EQ(Store().State(), StoreState::Usable);
    EXPECT_EQ(Store().ReadText("A", "y").GetError().Kind(), ErrorKind::Missing);

    ASSERT_EQ(::chmod(FilePath().c_str(), 0444), 0);
    EXPECT_EQ(Store().State(), StoreState::ReadOnly);
    EXPECT_EQ(*Store().ReadInt("A", "x"), 1);
    EXPECT_EQ(Store().Write({{"A", "x", "2"}}).GetError().Kind(), ErrorKind::AccessDenied);

    fs::remove(FilePath());
    fs::create_directory(FilePath());
    EXPECT_EQ(Store().State(), StoreState::Unreadable);
    EXPECT_EQ(Store().ReadText("A", "x").GetError().Kind(), ErrorKind::IsAFolder);
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
    for (const rlim_t limit : {0, 1, 200, 500}) {
        ASSERT_LT(limit, before.size());
        Status written;
        {
            const ScopedFileSizeLimit full(limit);
            written = Store().Write({{"A", "new", "x"}});
        }
        ASSERT_FALSE(written.Ok()) << limit;
        EXPECT_EQ(written.GetError().Kind(), ErrorKind::DiskFull) << limit;
        EXPECT_EQ(ContentOf(FilePath()), before) << limit;
    }
    ExpectAlone();
    EXPECT_TRUE(Store().Write({{"A", "new", "x"}}).Ok());
    EXPECT_EQ(ContentOf(FilePath()), before + "new=x\n");
}

TEST_F(SettingsStoreTest, AKillLeavesTheOldValuesOrTheNewOnes)
{
    const std::string padding(3000, 'p');
    ASSERT_TRUE(Store().Write({{"A", "first", "0"}, {"A", "pad", padding}, {"A", "last", "0"}}));
    for (int round = 0; round < 20; ++round) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (int i = round * 100000;; ++i) {
                const std::string text = std::to_string(i);
                (void)Store().Write({{"A", "first", text}, {"A", "last", text}}).Ok();
            }
        }
        std::this_thread::sleep_for(std::chrono::microseconds(2000 + 700 * round));
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
        const auto first = Store().ReadInt("A", "first");
        ASSERT_TRUE(first.Ok());
        EXPECT_EQ(*first, *Store().ReadInt("A", "last"));
        EXPECT_EQ(*Store().ReadText("A", "pad"), padding);
    }
    ASSERT_TRUE(Store().Write({{"A", "first", "done"}}).Ok());
    ExpectAlone();
}

TEST_F(SettingsStoreTest, WritersAtTheSameTimeLoseNothingOfEachOther)
{
    constexpr int kWriters = 4;
    constexpr int kValues = 15;
    std::vector<std::thread> writers;
    for (int writer = 0; writer < kWriters; ++writer) {
        writers.emplace_back([this, writer] {
            for (int i = 0; i < kValues; ++i) {
                const std::string name = std::to_string(writer) + "-" + std::to_string(i);
                (void)Store().Write({{"A", name, "x"}}).Ok();
            }
        });
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
    EXPECT_EQ(Store().ReadSection("A")->size(), std::size_t{kWriters * kValues});
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
    struct Case {
        const char* text;
        bool ok;
        std::int32_t number;
    };
    const Case cases[] = {
        {"0", true, 0},
        {"-1", true, -1},
        {"16400", true, 16400},
        {"-2147483648", true, std::numeric_limits<std::int32_t>::min()},
        {"2147483648", true, std::numeric_limits<std::int32_t>::min()},
        {"4294967295", true, -1},
        {"4294967296", false, 0},
        {"-2147483649", false, 0},
        {"99999999999999999999", false, 0},
        {"", false, 0},
        {"1x", false, 0},
        {"0x10", false, 0},
    };
    for (const Case& c : cases) {
        WriteFile(std::string("[A]\nx=") + c.text + "\n");
        const auto number = Store().ReadInt("A", "x");
        ASSERT_EQ(number.Ok(), c.ok) << c.text;
        if (c.ok) {
            EXPECT_EQ(*number, c.number) << c.text;
        }
    }
}

TEST_F(SettingsStoreTest, LiesInTheConfigurationFolderWhateverItsBytes)
{
    const std::string base = m_folder.Path() + "/conf\xFF";
    const ScopedVariable config("XDG_CONFIG_HOME", base);
    const SettingsStores stores = OpenSettingsStores();
    ASSERT_TRUE(stores.machine.Write({{"1.00", "Run1", "1"}}).Ok());
    ASSERT_TRUE(stores.profile.Write({{"Options", "OptFlags", "1"}}).Ok());
    ASSERT_TRUE(stores.fileTypes.Write({{".qrb", "", "QRB.Document"}}).Ok());
    for (const char* name : {"machine.ini", "profile.ini", "filetypes.ini"}) {
        EXPECT_TRUE(fs::is_regular_file(base + "/quorbit/" + name)) << name;
    }
    EXPECT_EQ(fs::status(base + "/quorbit").permissions(), fs::perms::owner_all);
}

}  // namespace
}  // namespace quorbit
