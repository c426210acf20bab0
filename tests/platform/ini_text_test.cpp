// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ini_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace quorbit {
namespace {

// Writes a value and reads it back with a new object.
std::string WriteAndRead(const std::string& section, const std::string& name,
                         const std::string& value)
{
    IniText written("[Before]\nx=1\n");
    written.Set(section, name, value);
    return IniText(written.Text()).Find(section, name).value_or("(none)");
}

TEST(IniText, KeepsAnyBytesButNulInValuesAndNames)
{
    std::vector<std::string> texts = {"\\\\x41", "\\x4\n", "\xEF\xBB\xBF"};
    for (int byte = 1; byte < 256; ++byte) {
        texts.push_back(std::string(1, static_cast<char>(byte)));
        texts.push_back("a" + texts.back() + "b");
    }
    std::mt19937 random(1);
    const std::string nasty = "\\\\x4F5c= []@;#\n\r\t\xFF\xC3\xA4";
    for (int i = 0; i < 2000; ++i) {
        texts.emplace_back();
        for (auto left = random() % 12; left > 0; --left) {
            texts.back() += nasty[random() % nasty.size()];
        }
    }
    for (const std::string& text : texts) {
        ASSERT_EQ(WriteAndRead("Section", "Name", text), text);
        ASSERT_EQ(WriteAndRead("Section", text, "value"), "value") << "name: " << text;
        ASSERT_EQ(WriteAndRead(text, "Name", "value"), "value") << "section: " << text;
    }
}

TEST(IniText, StaysReadableForAPersonAndLeavesWhatOneWroteWhereItStands)
{
    IniText ini(
        "; mine\n\n[drives]\n C = /mnt/c \n# old\nnonsense\n[unclosed\n=nothing\n\n[Other]\na=1\n");
    ini.Set("Drives", "c", "/mnt/new");
    ini.Set("Drives", "D d", "/home/J\xC3\xBCrgen/a \\b/");
    ini.Set("Other", "a", "1");
    ini.Set("QRB.Document\\shell", "", "/usr/bin/quorbit \"%1\" \"%2\"");
    ini.Set("Recent File List", "File1", "/mnt/\xFF\n");
    EXPECT_EQ(ini.Text(),
              "; mine\n\n[drives]\nC=/mnt/new\nD d=/home/J\xC3\xBCrgen/a \\b/\n# old\nnonsense\n"
              "[unclosed\n=nothing\n\n[Other]\na=1\n"
              "\n[QRB.Document\\shell]\n@=/usr/bin/quorbit \"%1\" \"%2\"\n"
              "\n[Recent File List]\nFile1=/mnt/\\xFF\\x0A\n");
}

TEST(IniText, ReadsWhatAnEditorMayMakeOfIt)
{
    const IniText ini(
        "\xEF\xBB\xBF[One] ; note\r\n A = x y \r\nA=second\r\nempty=\r\n[two]\nb=2\n"
        "[ONE]\nlate=3");
    EXPECT_EQ(ini.FirstSection(), "One");
    EXPECT_EQ(ini.Find("one", "a"), "x y");
    EXPECT_EQ(ini.Find("One", "empty"), "");
    EXPECT_EQ(ini.Find("One", "late"), "3");
    EXPECT_EQ(ini.Find("One", "b"), std::nullopt);
    EXPECT_EQ(ini.Find("Three", "b"), std::nullopt);
    EXPECT_EQ(ini.Values("TWO"), (std::vector<std::pair<std::string, std::string>>{{"b", "2"}}));
    EXPECT_EQ(IniText("a=1\n; [x]\n").FirstSection(), std::nullopt);
}

}  // namespace
}  // namespace quorbit
