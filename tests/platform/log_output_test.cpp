// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/log_output.h"

#include <filesystem>

#include "support/folder_test.h"

namespace quorbit {
namespace {

class LogOutputTest : public FolderTest {};

TEST_F(LogOutputTest, EmptiesAnOldLogAndAppendsToIt)
{
    Write({"a.log=a much longer log of an earlier run"});
    auto log = CreateLogOutput(Path("a.log"));
    ASSERT_TRUE(log.Ok());
    EXPECT_EQ(ContentOf(Path("a.log")), "");
    const std::string large(1 << 20, 'x');
    for (const std::string& text : {std::string("one\r\n"), std::string(), large}) {
        ASSERT_TRUE((*log)->Write(text).Ok());
    }
    EXPECT_EQ(ContentOf(Path("a.log")), "one\r\n" + large);
}

TEST_F(LogOutputTest, ASecondWriterIsTurnedAwayUnlessTheLogWasMovedAway)
{
    auto first = CreateLogOutput(Path("a.log"));
    ASSERT_TRUE((*first)->Write("mine").Ok());
    EXPECT_EQ(KindOf(CreateLogOutput(Path("a.log"))), ErrorKind::Busy);
    EXPECT_EQ(Tree(), TreeLines{"a.log=mine"});

    std::filesystem::rename(Path("a.log"), Path("kept.log"));
    auto second = CreateLogOutput(Path("a.log"));
    ASSERT_TRUE(second.Ok());
    ASSERT_TRUE((*first)->Write(" too").Ok());
    ASSERT_TRUE((*second)->Write("second").Ok());
    EXPECT_EQ(Tree(), (TreeLines{"a.log=second", "kept.log=mine too"}));
    second->reset();
    EXPECT_TRUE(CreateLogOutput(Path("a.log")).Ok());
}

TEST_F(LogOutputTest, TellsWhyALogCannotBeWritten)
{
    EXPECT_EQ(KindOf((*CreateLogOutput("/dev/full"))->Write("x")), ErrorKind::DiskFull);
    EXPECT_EQ(KindOf(CreateLogOutput(Path())), ErrorKind::IsAFolder);
    EXPECT_EQ(KindOf(CreateLogOutput(Path("no/a.log"))), ErrorKind::Missing);
    EXPECT_FALSE(CreateLogOutput(Path(std::string("a\0b", 3))).Ok());
    EXPECT_EQ(Tree(), TreeLines{});
}

}  // namespace
}  // namespace quorbit
