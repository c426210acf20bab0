// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/rate_estimator.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quorbit {
namespace {

constexpr std::uint64_t kMega = 1024 * 1024;

// A run that is looked at 30 times a second.
class RateEstimatorTest : public testing::Test {
protected:
    RateEstimatorTest() { m_rate.Update(m_now, Progress()); }

    void Work(double seconds, double filesPerSecond, double bytesPerSecond)
    {
        for (int i = 0; i < std::lround(seconds * 30); ++i) {
            m_now += std::chrono::microseconds(33'333);
            m_files += filesPerSecond / 30;
            m_bytes += bytesPerSecond / 30;
            m_rate.Update(m_now, Progress());
        }
    }

    void Box(std::chrono::seconds open)
    {
        m_now += open;
        m_rate.Skip(m_now, Progress());
    }

    // Seconds; -1 if there is nothing to tell.
    [[nodiscard]] double Left() const
    {
        const auto left = m_rate.TimeLeft();
        return left ? static_cast<double>(left->count()) : -1;
    }

    double m_total = 10'000;  // files; 0: the count was given up
    RateEstimator m_rate;

private:
    [[nodiscard]] RunProgress Progress() const
    {
        RunProgress progress;
        progress.filesDone = std::llround(std::floor(m_files));
        if (m_total > 0)
            progress.filesLeft = std::llround(m_total) - progress.filesDone;
        progress.bytesDone = static_cast<std::uint64_t>(m_bytes);
        return progress;
    }

    RateEstimator::TimePoint m_now{std::chrono::hours(1)};
    double m_files = 0;
    double m_bytes = 0;
};

TEST_F(RateEstimatorTest, HidesTheTimeUntilItIsStableAndLeavesOutTheTimeOfABox)
{
    EXPECT_FALSE(m_rate.BytesPerSecond().has_value());
    Work(2.5, 100, 5.0 * kMega);
    EXPECT_EQ(Left(), -1);
    Work(2.5, 100, 5.0 * kMega);
    EXPECT_NEAR(Left(), 95, 3);
    Box(std::chrono::seconds(600));
    Work(1, 100, 5.0 * kMega);
    EXPECT_NEAR(Left(), 94, 3);
    EXPECT_NEAR(*m_rate.MeanBytesPerSecond(), 5.0 * kMega, kMega / 10);
    Work(59, 100, kMega);
    EXPECT_NEAR(Left(), 35, 2);
}

TEST_F(RateEstimatorTest, TellsNoTimeWithoutACountButTheSpeedOfTheLastSeconds)
{
    m_total = 0;
    Work(20, 100, 80.0 * kMega);
    EXPECT_EQ(Left(), -1);
    EXPECT_NEAR(*m_rate.BytesPerSecond(), 80.0 * kMega, kMega);
    Work(20, 1, 0);
    EXPECT_LT(*m_rate.BytesPerSecond(), kMega);
    EXPECT_NEAR(*m_rate.MeanBytesPerSecond(), 40.0 * kMega, kMega);
}

// Seconds of tiny files and seconds of large ones, of which there are equally many each.
TEST_F(RateEstimatorTest, StaysWithinAFactorOfTwoOverMixedFiles)
{
    m_total = 40 * (500 + 4);
    for (int round = 0; round < 20; ++round) {
        Work(1, 500, 500 * 4096.0);
        Work(1, 4, 100.0 * kMega);
        const double left = 2.0 * (40 - 1 - round);
        EXPECT_TRUE(round < 5 || (Left() > left / 2 && Left() < left * 2)) << Left();
    }
}

TEST_F(RateEstimatorTest, GivesUpATimeThatTurnedOutWrong)
{
    Work(10, 100, kMega);
    EXPECT_NEAR(Left(), 90, 3);
    Work(120, 5, kMega / 20.0);  // the share has become slow
    EXPECT_GT(Left(), 1000);
}

}  // namespace
}  // namespace quorbit
