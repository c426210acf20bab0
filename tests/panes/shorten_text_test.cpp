// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/shorten_text.h"

#include <gtest/gtest.h>

namespace quorbit {
namespace {

// Every code unit is ten wide.
int Measure(const QString& text)
{
    return static_cast<int>(text.size()) * 10;
}

struct Case {
    const char* rule;
    const char* text;
    int width;
    const char* shown;
};

TEST(ShortenText, KeepsWhatFitsAndAtLeastOneCharacter)
{
    // The allowance is 4.
    for (const Case& c : {
             Case{"empty stays empty", "", 0, ""},
             Case{"fits to the pixel", "abcdef", 64, "abcdef"},
             Case{"one pixel short", "abcdef", 63, "ab..."},
             Case{"dots to the pixel", "abcdef", 54, "ab..."},
             Case{"one character is left", "abcdef", 44, "a..."},
             Case{"not even one fits", "abcdef", 5, "a..."},
             Case{"a single one that does not fit", "a", 5, "a..."},
             Case{"no room at all", "abc", -20, "a..."},
         }) {
        EXPECT_EQ(ShortenText(QString::fromUtf8(c.text), c.width, 4, Measure).toStdString(),
                  c.shown)
            << c.rule;
    }
}

TEST(ShortenText, NeverHalvesACharacterOfTwoUnits)
{
    const QString text = QString::fromUtf8("\xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80");
    for (int width = 0; width < 64; ++width) {
        const QString shown = ShortenText(text, width, 4, Measure);
        EXPECT_TRUE(shown == text.left(2) + QStringLiteral("...") ||
                    shown == text.left(4) + QStringLiteral("...") || shown == text)
            << width << ' ' << shown.toStdString();
    }
}

}  // namespace
}  // namespace quorbit
