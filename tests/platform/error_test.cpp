// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/error.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <vector>

namespace quorbit {
namespace {

TEST(ErrorTest, OnlyOneCodeMeansThatThereIsNothing)
{
    for (int code = 1; code < 200; ++code) {
        EXPECT_EQ(ErrorFromErrno(code).Kind() == ErrorKind::Missing, code == ENOENT) << code;
    }
}

TEST(ErrorTest, TellsTheReasonInOneLine)
{
    EXPECT_EQ(ErrorFromErrno(EACCES).Text(), "Permission denied");
    EXPECT_EQ(ErrorFromErrno(ENOSPC).Text(), "No space left on device");
    EXPECT_EQ(ErrorFromErrno(4711).Text(), "Unknown error 4711");
    EXPECT_EQ(Error(ErrorKind::Busy, "own words").Text(), "own words");
    EXPECT_EQ(Error(ErrorKind::Busy, "own words").Code(), 0);
}

}  // namespace
}  // namespace quorbit
