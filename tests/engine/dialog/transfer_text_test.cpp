// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/transfer_text.h"

#include <gtest/gtest.h>

namespace quorbit {
namespace {

using std::chrono::seconds;

TEST(TransferTextTest, AmountsHaveThreeDigits)
{
    const std::vector<std::pair<double, std::string>> cases{
        {0, "0 bytes"},        {1, "1 byte"},          {1023, "1023 bytes"},
        {1024, "1.00 KB"},     {10'235, "10.0 KB"},    {102'400, "100 KB"},
        {1'023'000, "999 KB"}, {1'023'900, "0.98 MB"}, {1.5 * (1 << 20), "1.50 MB"},
        {5e12, "4.55 TB"},     {5e18, "4441 PB"}};
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(AmountText(bytes), text) << bytes;
}

TEST(TransferTextTest, TimesAreCoarserTheLongerTheyAre)
{
    const std::vector<std::pair<int, std::string>> cases{
        {0, "about 5 seconds left"},   {1, "about 5 seconds left"},
        {41, "about 45 seconds left"}, {55, "about 55 seconds left"},
        {56, "about 1 minute left"},   {89, "about 1 minute left"},
        {90, "about 2 minutes left"},  {3569, "about 59 minutes left"},
        {3570, "about 1 hour left"},   {5000, "about 1 hour 20 minutes left"},
        {7200, "about 2 hours left"}};
    for (const auto& [left, text] : cases)
        EXPECT_EQ(TimeLeftText(seconds(left)), text) << left;
}

TEST(TransferTextTest, TellsOnlyWhatThereIs)
{
    EXPECT_EQ(TransferText({}), "");
    EXPECT_EQ(TransferText({0, 0.0, seconds(180), ""}), "About 3 minutes left");
    EXPECT_EQ(TransferText({2048, {}, {}, ""}), "2.00 KB copied");
    EXPECT_EQ(TransferText({3ULL << 30, 52.0 * (1 << 20), seconds(180), ""}),
              "3.00 GB copied, 52.0 MB/s, about 3 minutes left");
    EXPECT_EQ(TransferText({2048, 0.0, {}, "finishing"}), "2.00 KB copied, 0 bytes/s, finishing");
}

}  // namespace
}  // namespace quorbit
