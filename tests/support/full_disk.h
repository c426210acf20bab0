// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Simulates a full disk: with RLIMIT_FSIZE, writes beyond a size fail with EFBIG, even for root.

#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

namespace quorbit {

// Returns the result of `call`, during which no file can grow beyond `bytes`. Do not assert in it:
// the limit also applies to the test's own output if that is a file.
template <class Call>
auto OnFullDisk(rlim_t bytes, Call call)
{
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const rlimit limit{bytes, old.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    auto result = call();
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &old), 0);
    (void)std::signal(SIGXFSZ, oldHandler);
    return result;
}

}  // namespace quorbit
