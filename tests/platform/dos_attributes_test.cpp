// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/dos_attributes.h"

#include <gtest/gtest.h>

#include <vector>

namespace quorbit {
namespace {

std::string Bytes(const char* hex)
{
    std::string bytes;
    for (const char* p = hex; *p != '\0'; ++p) {
        if (*p != ' ') {
            bytes += static_cast<char>(std::stoi(std::string(p, 2), nullptr, 16));
            ++p;
        }
    }
    return bytes;
}

const std::string kText22 = Bytes("30 78 32 32 00");
const std::string kVersion3 = Bytes(
    "30 78 32 30 00 00 03 00 03 00 00 00 11 00 00 00 20 00 00 00 00 00 00 00"
    "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 05 69 36 c0 d5 01 00 00 00 00 00 00 00 "
    "00");
const std::string kVersion4 = Bytes(
    "00 00 04 00 04 00 00 00 51 00 00 00 25 00 00 00 01 02 03 04 05 06 07 08 c0 9b 8e 8c 5a 7c dd "
    "01");
const std::string kVersion5 =
    Bytes("00 00 05 00 05 00 00 00 11 00 00 00 27 00 00 00 c0 9b 8e 8c 5a 7c dd 01");

TEST(DosAttributesTest, ReadsEveryVersionThatWasEverWritten)
{
    const std::vector<std::pair<std::string, std::optional<std::uint32_t>>> cases = {
        {kText22, 0x22},
        {"0x22", 0x22},  // without its NUL
        {"23", 0x23},    // without its prefix
        {"0X23", 0x23},
        {kVersion3, 0x20},
        {kVersion4, 0x25},
        {kVersion5, 0x27},
        {Bytes("00 00 05 00 05 00 00 00 01 00 00 00 a7 ff 00 00 00 00 00 00 00 00 00 00"), 0x27},
        {kVersion5.substr(0, 16), std::nullopt},
        {kVersion4.substr(0, 24), std::nullopt},
        {Bytes("00 00 06 00 06 00 00 00 11 00 00 00 27 00 00 00 c0 9b 8e 8c 5a 7c dd 01"),
         std::nullopt},
        {Bytes("00 00 05 00 04 00 00 00 11 00 00 00 27 00 00 00 c0 9b 8e 8c 5a 7c dd 01"),
         std::nullopt},
        {Bytes("00 00 03 00 03 00 00 00") + std::string(48, '\0'), std::nullopt},
        {"0x", std::nullopt},
        {"0xzz", std::nullopt},
        {"0x123456789", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [value, expected] : cases) {
        EXPECT_EQ(ReadDosAttributes(value), expected) << testing::PrintToString(value);
    }
}

TEST(DosAttributesTest, ChangesTheBitsAndKeepsFormAndTimes)
{
    std::string expected5 = kVersion5;
    expected5[12] = 0x22;
    EXPECT_EQ(ChangeDosAttributes(kVersion5, 0x02, 0x07), expected5);
    std::string expected4 = kVersion4;
    expected4[12] = 0x05;
    EXPECT_EQ(ChangeDosAttributes(kVersion4, 0x05, 0x27), expected4);
    EXPECT_EQ(ChangeDosAttributes(kText22, 0x01, 0x27), Bytes("30 78 31 00"));
    EXPECT_EQ(ChangeDosAttributes("23", 0x20, 0x27), "0x20");
    // The text of version 3 grows and shrinks; the body moves with it.
    std::string expected3 = kVersion3;
    expected3[3] = '7';
    expected3[16] = 0x27;
    EXPECT_EQ(ChangeDosAttributes(kVersion3, 0x27, 0x27), expected3);
    const std::string shorter =
        Bytes("30 78 32 00 03 00 03 00 11 00 00 00 02") + kVersion3.substr(17);
    EXPECT_EQ(ChangeDosAttributes(kVersion3, 0x02, 0x27), shorter);
    EXPECT_EQ(ChangeDosAttributes(shorter, 0x20, 0x27), kVersion3);
}

TEST(DosAttributesTest, SetsTheFlagThatSaysThatThereAreAttributes)
{
    std::string withoutFlag = kVersion5;
    withoutFlag[8] = 0x10;
    EXPECT_EQ(ChangeDosAttributes(withoutFlag, 0x27, 0x27), kVersion5);
}

TEST(DosAttributesTest, WritesVersion5WhereThereWasNothing)
{
    EXPECT_EQ(ChangeDosAttributes("", 0x32, 0x3f),
              Bytes("00 00 05 00 05 00 00 00 01 00 00 00 32 00 00 00 00 00 00 00 00 00 00 00"));
}

TEST(DosAttributesTest, LeavesWhatItDoesNotUnderstandAlone)
{
    for (const std::string& value :
         {std::string("junk"), kVersion5.substr(0, 16), kVersion3.substr(0, 15),
          Bytes("30 78 32 30 00 00 09 00 09 00 00 00") + std::string(44, '\0')}) {
        EXPECT_EQ(ChangeDosAttributes(value, 0x01, 0x27), std::nullopt)
            << testing::PrintToString(value);
    }
}

}  // namespace
}  // namespace quorbit
