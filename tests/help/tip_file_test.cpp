// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/tip_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "support/scoped_variable.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

using Lines = std::vector<std::string>;

class TipFileTest : public testing::Test {
protected:
    // What so many reads give, from a position on; "(none)" where there is no tip.
    Lines Read(const std::string& content, int count, long position = 0)
    {
        WriteContent(path, content);
        auto file = TipFile::Open(path);
        EXPECT_TRUE(file);
        EXPECT_TRUE(file->Seek(position));
        Lines lines;
        for (int i = 0; i < count; ++i) {
            const auto tip = file->Next();
            EXPECT_TRUE(tip);
            lines.push_back(tip->value_or("(none)"));
        }
        return lines;
    }

    TempFolder folder;
    std::string path = folder.Path() + "/tips.txt";
};

TEST_F(TipFileTest, TellsTipsFromOtherLinesByTheirFirstCharacter)
{
    struct Case {
        const char* content;
        Lines tips;
    };
    const Case cases[] = {
        {"one\ntwo\n", {"one\n", "two\n", "one\n"}},
        {"; remark\n\n\ttab\n blank\n;\none\n\n", {"one\n", "one\n"}},
        {"one ; no remark\n", {"one ; no remark\n"}},
        {"one\r\n\r\ntwo\r\n", {"one\n", "two\n", "one\n"}},
        {"one\nlast", {"one\n", "last", "one\n"}},
        {"", {"(none)", "(none)"}},
        {"; a\n\n b\n", {"(none)", "(none)"}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Read(c.content, static_cast<int>(c.tips.size())), c.tips) << c.content;
    }
}

TEST_F(TipFileTest, ALongLineIsReadInPiecesOf999Characters)
{
    const std::string full(999, 'a');
    EXPECT_EQ(Read(full + "\nnext\n", 2), (Lines{full, "next\n"}));
    EXPECT_EQ(Read(full + "b\nnext\n", 3), (Lines{full, "b\n", "next\n"}));
    EXPECT_EQ(Read(full + "; rest\nnext\n", 2), (Lines{full, "next\n"})) << "judged by itself";

    const std::string accent = "\xC3\xA9";
    std::string accents;
    for (int i = 0; i < 999; ++i) {
        accents += accent;
    }
    EXPECT_EQ(Read(accents + accent + "\n", 2), (Lines{accents, accent + "\n"}));
}

TEST_F(TipFileTest, GoesOnAtAPositionAndReportsTheNext)
{
    EXPECT_EQ(Read("one\ntwo\n", 1, 4), Lines{"two\n"});
    EXPECT_EQ(Read("one\ntwo\n", 1, 8), Lines{"one\n"}) << "at the end";
    EXPECT_EQ(Read("one\ntwo\n", 1, 800), Lines{"one\n"}) << "behind the end";

    auto file = TipFile::Open(path);
    ASSERT_TRUE(file);
    EXPECT_FALSE(file->Seek(-1));
    EXPECT_TRUE(file->Next());
    EXPECT_EQ(file->Position(), 4);
}

TEST_F(TipFileTest, StampIsTheTimeOfTheLastChangeAndOnlyRegularFilesOpen)
{
    const ScopedVariable zone("TZ", "UTC");
    WriteContent(path, "one\n");
    SetModified(path, 1700000000);
    auto file = TipFile::Open(path);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->TimeStamp(), "Tue Nov 14 22:13:20 2023");

    WriteTree(folder.Path(), {"pipe|"});
    for (const char* name : {"/none.txt", "/pipe", "/"}) {
        EXPECT_FALSE(TipFile::Open(folder.Path() + name)) << name;
    }
}

TEST_F(TipFileTest, IsSoughtInTheCurrentFolderThenAsInstalledThenBesideTheProgram)
{
    const std::filesystem::path before = std::filesystem::current_path();
    WriteTree(folder.Path(), {"here/tips.txt=a", "elsewhere/", "home/", "data/quorbit/tips.txt=b",
                              "bin/", "share/quorbit/tips.txt=c"});
    const ScopedVariable home("XDG_DATA_HOME", folder.Path() + "/home");
    const std::string program = folder.Path() + "/bin/quorbit";
    {
        const ScopedVariable data("XDG_DATA_DIRS", folder.Path() + "/data");
        std::filesystem::current_path(folder.Path() + "/here");
        EXPECT_EQ(ContentOf(FindTips(program)), "a");
        std::filesystem::current_path(folder.Path() + "/elsewhere");
        EXPECT_EQ(ContentOf(FindTips(program)), "b");
    }
    const ScopedVariable data("XDG_DATA_DIRS", folder.Path() + "/elsewhere");
    EXPECT_EQ(ContentOf(FindTips(program)), "c");
    EXPECT_EQ(FindTips(folder.Path() + "/quorbit"), "");
    std::filesystem::current_path(before);
}

}  // namespace
}  // namespace quorbit
