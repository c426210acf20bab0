// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/run_log.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "engine/run_context.h"
#include "engine/run_report.h"
#include "support/recording_surface.h"

namespace quorbit {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

// Records every write separately and fails the chosen ones.
class WritesApart : public LogOutput {
public:
    WritesApart(std::vector<std::string>& writes, std::vector<std::size_t> failing)
        : m_writes(writes), m_failing(std::move(failing))
    {
    }
    Status Write(std::string_view bytes) override
    {
        m_writes.emplace_back(bytes);
        const bool fails = std::ranges::find(m_failing, m_writes.size()) != m_failing.end();
        return fails ? Status(Error(ErrorKind::DiskFull)) : Status();
    }
    // Recorded and counted as a write.
    Status Close() override { return Write("closed"); }

private:
    std::vector<std::string>& m_writes;
    std::vector<std::size_t> m_failing;
};

class RunLogTest : public testing::Test {
protected:
    // failing: numbers of the writes to fail, counted from 1.
    std::unique_ptr<RunLog> MakeLog(std::vector<std::size_t> failing = {})
    {
        return std::make_unique<RunLog>(std::make_unique<WritesApart>(m_writes, std::move(failing)),
                                        [] { return s_now; });
    }

    static inline steady_clock::time_point s_now{};
    std::vector<std::string> m_writes;
};

using Writes = std::vector<std::string>;

TEST_F(RunLogTest, GathersLinesForATenthOfASecondFromTheFirstOfThem)
{
    const auto log = MakeLog();
    EXPECT_TRUE(log->Add("a"));
    s_now += 99ms;
    EXPECT_TRUE(log->Add(""));
    EXPECT_TRUE(log->FlushIfDue());
    EXPECT_EQ(m_writes, Writes{});
    s_now += 1ms;
    EXPECT_TRUE(log->Add("b"));
    EXPECT_EQ(m_writes, (Writes{"a\r\n\r\nb\r\n"}));

    EXPECT_TRUE(log->Add("c"));  // starts a new interval
    s_now += 100ms;
    EXPECT_EQ(m_writes.size(), 1U);
    EXPECT_TRUE(log->FlushIfDue());
    EXPECT_EQ(m_writes.back(), "c\r\n");
}

TEST_F(RunLogTest, WritesWhenToldToAndWhenItIsFull)
{
    const auto log = MakeLog();
    EXPECT_TRUE(log->Add("a"));
    EXPECT_TRUE(log->Flush());
    EXPECT_TRUE(log->Flush());  // writes nothing if nothing is pending
    EXPECT_EQ(m_writes, Writes{"a\r\n"});
    const std::string half(32 * 1024 - 2, 'x');
    EXPECT_TRUE(log->Add(half));
    EXPECT_EQ(m_writes.size(), 1U);
    EXPECT_TRUE(log->Add(half));
    EXPECT_EQ(m_writes.back(), half + "\r\n" + half + "\r\n");
}

TEST_F(RunLogTest, TellsAFailureOnceAWriteAndGoesOnWithWhatFollows)
{
    RecordingSurface surface;
    CRunContext ctx;
    ctx.m_pDlg = &surface;
    ctx.m_pLogFile = MakeLog({1, 2, 4});
    const auto writeAndFlush = [&](std::string_view line) {
        WriteLogLine(ctx, line);
        FlushLog(ctx);
        return surface.messages.size();
    };
    WriteLogLine(ctx, "lost");
    EXPECT_EQ(writeAndFlush("lost too"), 1U);
    EXPECT_EQ(surface.messages[0].text, "Error writing to the logfile.");
    EXPECT_EQ(writeAndFlush("lost again"), 2U);
    EXPECT_EQ(writeAndFlush("kept"), 2U);
    CloseLog(ctx);
    EXPECT_EQ(surface.messages.size(), 3U);
    EXPECT_EQ(m_writes, (Writes{"lost\r\nlost too\r\n", "lost again\r\n", "kept\r\n", "closed"}));
    EXPECT_EQ(writeAndFlush("after the end"), 3U);
}

TEST(FileSizeText, RoundsAsTheLogDoes)
{
    const std::pair<std::uint64_t, const char*> cases[] = {
        {0, "1 KB"},
        {1023, "1 KB"},
        {1024, "1 KB"},
        {1499, "1 KB"},
        {1500, "2 KB"},
        {2047, "2 KB"},
        {2048, "2 KB"},
        {20480, "20 KB"},
        {21504, "22 KB"},
        {1048576, "1025 KB"},
        {0x7FFFFFFF, "2097152 KB"},
        {0xFFFFFFFF, "4194304 KB"},
        {0x1'0000'0000, "1 KB"},  // only the low 32 bits count
        {0x1'0000'1000, "4 KB"}};
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(FileSizeText(bytes), text) << bytes;
    }
}

}  // namespace
}  // namespace quorbit
