// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/log_output.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

class LogOutputTest : public testing::Test {
protected:
    [[nodiscard]] std::string PathOf(const std::string& name) const
    {
        return m_folder.Path() + "/" + name;
    }
    TempFolder m_folder;
};

TEST_F(LogOutputTest, EmptiesAnOldLogAndAppendsToIt)
{
    const std::string path = PathOf("a.log");
    WriteContent(path, "a much longer log of an earlier run");
    auto log = CreateLogOutput(path);
    ASSERT_TRUE(log.Ok());
    EXPECT_EQ(ContentOf(path), "");
    const std::string large(1 << 20, 'x');
    ASSERT_TRUE((*log)->Write("one\r\n").Ok());
    ASSERT_TRUE((*log)->Write("").Ok());
    ASSERT_TRUE((*log)->Write(large).Ok());
    EXPECT_EQ(ContentOf(path), "one\r\n" + large);
}

TEST_F(LogOutputTest, ASecondWriterIsTurnedAwayAndDisturbsNothing)
{
    const std::string path = PathOf("a.log");
    auto first = CreateLogOutput(path);
    ASSERT_TRUE(first.Ok());
    ASSERT_TRUE((*first)->Write("mine").Ok());

    const auto second = CreateLogOutput(path);
    ASSERT_FALSE(second.Ok());
    EXPECT_EQ(second.GetError().Kind(), ErrorKind::Busy);
    EXPECT_EQ(ContentOf(path), "mine");

    first->reset();
    EXPECT_TRUE(CreateLogOutput(path).Ok());
}

TEST_F(LogOutputTest, ALogThatWasMovedAwayDoesNotHoldItsOldPath)
{
    const std::string path = PathOf("a.log");
    auto first = CreateLogOutput(path);
    ASSERT_TRUE(first.Ok());
    std::filesystem::rename(path, PathOf("kept.log"));
    auto second = CreateLogOutput(path);
    ASSERT_TRUE(second.Ok());
    ASSERT_TRUE((*first)->Write("first").Ok());
    ASSERT_TRUE((*second)->Write("second").Ok());
    EXPECT_EQ(ContentOf(PathOf("kept.log")), "first");
    EXPECT_EQ(ContentOf(path), "second");
}

TEST_F(LogOutputTest, TellsWhyALogCannotBeWritten)
{
    auto full = CreateLogOutput("/dev/full");
    ASSERT_TRUE(full.Ok());
    EXPECT_EQ((*full)->Write("x").GetError().Kind(), ErrorKind::DiskFull);

    EXPECT_EQ(CreateLogOutput(m_folder.Path()).GetError().Kind(), ErrorKind::IsAFolder);
    EXPECT_EQ(CreateLogOutput(PathOf("no/a.log")).GetError().Kind(), ErrorKind::Missing);
    EXPECT_FALSE(CreateLogOutput(PathOf(std::string("a\0b", 3))).Ok());
    EXPECT_FALSE(std::filesystem::exists(PathOf("a")));
}

}  // namespace
}  // namespace quorbit
