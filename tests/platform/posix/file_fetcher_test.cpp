// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/file_fetcher.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "support/folder_test.h"
#include "support/wait.h"

namespace quorbit {
namespace {

using namespace std::chrono_literals;

class FileFetcherTest : public FolderTest {
protected:
    void SetUp() override { Write({"a=1", "b=2", "c=3", "sub/d=4"}); }

    [[nodiscard]] FileFetcher::SharedFd Open() const
    {
        return std::make_shared<const UniqueFd>(
            ::open(Path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }
    static FindData Item(const std::string& name, ItemKind kind = ItemKind::File)
    {
        FindData item;
        item.name = name;
        item.kind = kind;
        return item;
    }
    // Waits until the thread has found this many files in a row already in memory.
    static bool Reaches(const FileFetcher& fetcher, std::size_t inVain)
    {
        return Eventually([&] { return fetcher.InVain() >= inVain; }) && fetcher.InVain() == inVain;
    }
};

TEST_F(FileFetcherTest, PassesOverWhatItCannotOrMustNotRead)
{
    ASSERT_EQ(::mkfifo(Path("fifo").c_str(), 0600), 0);
    std::filesystem::create_symlink(Path("a"), Path("link"));
    FileFetcher fetcher;
    fetcher.Fetch(Open(), Item("a"));
    fetcher.Fetch(Open(), Item("gone"));
    fetcher.Fetch(Open(), Item("link"));  // replaced a file after the listing
    fetcher.Fetch(Open(), Item("sub", ItemKind::Folder));
    fetcher.Fetch(Open(), Item("gone", ItemKind::Folder));
    fetcher.Fetch(Open(), Item("fifo", ItemKind::Special));
    fetcher.Fetch(Open(), Item("b"));
    EXPECT_TRUE(Reaches(fetcher, 2));  // just written, so in the page cache
    std::filesystem::remove_all(Path("sub"));
    fetcher.Fetch(Open(), Item("fifo"));  // a blocking open would wait for a writer
    fetcher.Fetch(Open(), Item("c"));
    EXPECT_TRUE(Reaches(fetcher, 4));  // a FIFO counts as in memory
}

TEST_F(FileFetcherTest, EndsAtOnceWithRequestsWaitingAndLetsGoOfTheFolders)
{
    const FileFetcher::SharedFd folder = Open();
    const auto start = std::chrono::steady_clock::now();
    {
        FileFetcher fetcher;
        for (int i = 0; i < 100'000; ++i) {
            fetcher.Fetch(folder, Item("sub", ItemKind::Folder));
        }
    }
    EXPECT_EQ(folder.use_count(), 1);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 60s);
}

}  // namespace
}  // namespace quorbit
