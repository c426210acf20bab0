// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/elapsed_clock.h"

#include <gtest/gtest.h>

namespace quorbit {
namespace {

using namespace std::chrono_literals;

class ElapsedClockTest : public testing::Test {
protected:
    std::chrono::steady_clock::time_point m_now{1h};
    ElapsedClock m_clock{[this] { return m_now; }};
};

TEST_F(ElapsedClockTest, ShowsHoursMinutesAndSecondsWithoutLeadingZeros)
{
    const std::pair<std::chrono::milliseconds, const char*> steps[] = {
        {0ms, "0:0:0"}, {999ms, "0:0:0"},  {1ms, "0:0:1"}, {58s, "0:0:59"},      {1s, "0:1:0"},
        {67s, "0:2:7"}, {57min, "0:59:7"}, {53s, "1:0:0"}, {24h + 61s, "25:1:1"}};
    for (const auto& [step, text] : steps) {
        m_now += step;
        EXPECT_EQ(m_clock.Text(), text);
    }
}

TEST_F(ElapsedClockTest, StandsStillInAPauseAndOnceStopped)
{
    m_now += 1500ms;
    m_clock.Pause();
    m_now += 10min;
    m_clock.Pause();  // does not nest
    EXPECT_EQ(m_clock.Seconds(), 1);
    m_clock.Resume();
    m_now += 500ms;
    EXPECT_EQ(m_clock.Seconds(), 2);
    m_clock.Stop();
    m_now += 1h;
    m_clock.Resume();
    m_now += 1h;
    EXPECT_EQ(m_clock.Text(), "0:0:2");
}

}  // namespace
}  // namespace quorbit
