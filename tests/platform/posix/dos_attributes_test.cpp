// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/dos_attributes.h"

#include <gtest/gtest.h>

namespace quorbit {
namespace {

using namespace std::string_literals;

const std::string kTimes = "\xc0\x9b\x8e\x8c\x5a\x7c\xdd\x01";
const std::string kBody3 =
    std::string(25, '\0') + "\x05\x69\x36\xc0\xd5\x01" + std::string(8, '\0');
const std::string kVersion3 = "0x20\0\0\3\0\3\0\0\0\x11\0\0\0\x20"s + kBody3;
const std::string kVersion4 =
    "\0\0\x04\0\x04\0\0\0\x51\0\0\0\x25\0\0\0\x01\x02\x03\x04\5\6\7\x08"s + kTimes;
const std::string kVersion5 = "\0\0\x05\0\x05\0\0\0\x11\0\0\0\x27\0\0\0"s + kTimes;

// Returns the value with one byte changed.
std::string With(std::string value, std::size_t at, int byte)
{
    value[at] = static_cast<char>(byte);
    return value;
}

TEST(DosAttributesTest, ReadsEveryVersionThatWasEverWritten)
{
    const std::pair<std::string, std::optional<std::uint32_t>> cases[] = {
        {"0x22\0"s, 0x22},
        {"0x22", 0x22},  // without its NUL
        {"23", 0x23},    // without its prefix
        {"0X23", 0x23},
        {kVersion3, 0x20},
        {kVersion4, 0x25},
        {kVersion5, 0x27},
        {With(With(kVersion5, 12, 0xa7), 13, 0xff), 0x27},
        {kVersion5.substr(0, 16), {}},
        {kVersion4.substr(0, 24), {}},
        {With(With(kVersion5, 2, 6), 4, 6), {}},
        {With(kVersion5, 4, 4), {}},
        {"\0\0\3\0\3\0\0\0"s + std::string(48, '\0'), {}},
        {"0x", {}},
        {"0xzz", {}},
        {"0x123456789", {}},
        {"", {}}};
    for (const auto& [value, expected] : cases) {
        EXPECT_EQ(ReadDosAttributes(value), expected) << testing::PrintToString(value);
    }
}

TEST(DosAttributesTest, ChangesTheBitsKeepsFormAndTimesAndLeavesTheRestAlone)
{
    // The text before the body of version 3 can change its length.
    const std::string shorter = "0x2\0\3\0\3\0\x11\0\0\0\2"s + kBody3;
    const std::tuple<std::string, std::uint32_t, std::uint32_t, std::optional<std::string>>
        cases[] = {{kVersion5, 0x02, 0x07, With(kVersion5, 12, 0x22)},
                   {With(kVersion5, 8, 0x10), 0x27, 0x27,
                    kVersion5},  // sets the flag for valid attributes
                   {kVersion4, 0x05, 0x27, With(kVersion4, 12, 0x05)},
                   {"0x22\0"s, 0x01, 0x27, "0x1\0"s},
                   {"23", 0x20, 0x27, "0x20"},
                   {kVersion3, 0x27, 0x27, With(With(kVersion3, 3, '7'), 16, 0x27)},
                   {kVersion3, 0x02, 0x27, shorter},
                   {shorter, 0x20, 0x27, kVersion3},
                   // Creates version 5 if there is no value.
                   {"", 0x32, 0x3f, "\0\0\5\0\5\0\0\0\1\0\0\0\x32\0\0\0"s + std::string(8, '\0')},
                   {"junk", 0x01, 0x27, {}},
                   {kVersion5.substr(0, 16), 0x01, 0x27, {}},
                   {kVersion3.substr(0, 15), 0x01, 0x27, {}},
                   {"0x20\0\0\x09\0\x09\0\0\0"s + std::string(44, '\0'), 0x01, 0x27, {}}};
    for (const auto& [before, bits, mask, after] : cases) {
        EXPECT_EQ(ChangeDosAttributes(before, bits, mask), after) << testing::PrintToString(before);
    }
}

}  // namespace
}  // namespace quorbit
