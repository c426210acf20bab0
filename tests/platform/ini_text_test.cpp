// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ini_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace quorbit {
namespace {

// What another reader of the written text finds.
std::string WriteAndRead(const std::string& section, const std::string& name,
                         const std::string& value)
{
    IniText written("[Before]\nx=1\n");
    written.Set(section, name, value);
    return IniText(written.Text()).Find(section, name).value_or("(none)");
}

TEST(IniText, KeepsAnyBytesButNulInValuesAndNames)
{
    std::vector<std::string> texts = {
        "",
        " ",
        "  a  ",
        "\t",
        "=",
        "a=b",
        "[x]",
        "x]y",
        ";c",
        "#c",
        "@",
        "\\",
        "\\x",
        "\\x4",
        "\\x41",
        "\\\\",
        "\\x5C",
        "\\\\x41",
        "\"q\"",
        "\\x4\n",
        "\\\n",
        "a\r",
        "\xEF\xBB\xBF"
        "a",
        "C:\\Data\\new",
        "\xFF\xFE",
        "\xC3\xA4",
    };
    for (int byte = 1; byte < 256; ++byte) {
        texts.push_back(std::string(1, static_cast<char>(byte)));
        texts.push_back("a" + texts.back() + "b");
    }
    std::mt19937 random(1);
    const std::string nasty = "\\\\x4F5c= []@;#\n\r\t\xFF\xC3\xA4";
    for (int i = 0; i < 2000; ++i) {
        std::string text;
        for (auto left = random() % 12; left > 0; --left) {
            text += nasty[random() % nasty.size()];
        }
        texts.push_back(text);
    }
    for (const std::string& text : texts) {
        ASSERT_EQ(WriteAndRead("Section", "Name", text), text);
        ASSERT_EQ(WriteAndRead("Section", text, "value"), "value") << "name: " << text;
        ASSERT_EQ(WriteAndRead(text, "Name", "value"), "value") << "section: " << text;
    }
}

TEST(IniText, StaysReadableForAPerson)
{
    IniText ini("");
    ini.Set("Options", "OptFlags", "3");
    ini.Set("Options\\Default", "FileTypes", "*.txt*.doc");
    ini.Set("Options", "Qrb File Path", "/home/J\xC3\xBCrgen/a \\b/");
    ini.Set("QRB.Document\\shell\\open\\command", "", "/usr/bin/quorbit \"%1\" \"%2\"");
    ini.Set("Recent File List", "File1", "/mnt/\xFF\n");
    EXPECT_EQ(ini.Text(),
              "[Options]\nOptFlags=3\nQrb File Path=/home/J\xC3\xBCrgen/a \\b/\n"
              "\n[Options\\Default]\nFileTypes=*.txt*.doc\n"
              "\n[QRB.Document\\shell\\open\\command]\n@=/usr/bin/quorbit \"%1\" \"%2\"\n"
              "\n[Recent File List]\nFile1=/mnt/\\xFF\\x0A\n");
}

TEST(IniText, LeavesWhatAPersonWroteWhereItStands)
{
    IniText ini(
        "; mine\n\n[drives]\n C = /mnt/c \n# old\nnonsense\n[unclosed\n=nothing\n\n[Other]\na=1\n");
    ini.Set("Drives", "c", "/mnt/new");
    ini.Set("Drives", "D", "/mnt/d");
    ini.Set("Other", "a", "1");
    EXPECT_EQ(ini.Text(),
              "; mine\n\n[drives]\nC=/mnt/new\nD=/mnt/d\n# old\nnonsense\n[unclosed\n=nothing\n\n"
              "[Other]\na=1\n");
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
