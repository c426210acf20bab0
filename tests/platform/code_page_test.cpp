// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/code_page.h"

#include <gtest/gtest.h>

#include <string>

namespace quorbit {
namespace {

TEST(CodePage, ConvertsBothWays)
{
    const struct {
        std::int32_t page;
        std::string bytes;
        std::string text;
    } cases[] = {{1252, "", ""},           {1252, "C:\\a.pr\xFC", "C:\\a.prü"},
                 {1252, "\x80\x8A", "€Š"}, {1251, "\xCF\xF0\xE8", "При"},
                 {1255, "\xE0\xE1", "אב"}, {1258, "\xE2", "â"},  // an accent could follow
                 {932, "\x83\x5C", "ソ"},  // the second byte is a backslash in ASCII
                 {850, "\x81", "ü"},       {kUtf8CodePage, "Prü", "Prü"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.page) + ": " + c.text);
        const auto page = OpenCodePage(c.page);
        for (int round = 0; round < 2; ++round) {  // a conversion leaves no state behind
            EXPECT_EQ(page->Decode(c.bytes), c.text);
            EXPECT_FALSE(HasUnconverted(c.text));
            const auto bytes = page->Encode(c.text);
            ASSERT_TRUE(bytes.Ok());
            EXPECT_EQ(*bytes, c.bytes);
        }
    }
}

TEST(CodePage, KeepsTheBytesOfWhatItCannotConvert)
{
    const std::pair<std::int32_t, const char*> cases[] = {
        {1252, "a\x81"},
        {1252, "\xC3\x81.txt"},  // undefined bytes, one of them UTF-8 for
                                 // Á
        {932, "a\x83"},          // half a character
        {932, "\x87\x90"},       // a second form of U+2252
        {kUtf8CodePage, "\xFC"},
        {-1, "\xFC"},
        {37, "\xFC"},
        {1200, "\xFC"},
        {99999, "\xFC"}};
    for (const auto& [number, bytes] : cases) {
        SCOPED_TRACE(std::to_string(number) + bytes);
        const auto page = OpenCodePage(number);
        const std::string text = page->Decode(bytes);
        EXPECT_TRUE(HasUnconverted(text)) << text;
        const auto back = page->Encode("C:\\" + text + ".x");
        ASSERT_TRUE(back.Ok());
        EXPECT_EQ(*back, std::string("C:\\") + bytes + ".x");
        EXPECT_EQ(page->Decode("plain"), "plain");
    }
    for (const char* text : {"日本", "a\xFF", "a\u0314", "\xED"}) {
        EXPECT_FALSE(OpenCodePage(kDefaultCodePage)->Encode(text).Ok()) << text;
    }
}

}  // namespace
}  // namespace quorbit
