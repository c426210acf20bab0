// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Makes every write that goes beyond a size fail with EFBIG, as on a full disk, also for root.

#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

namespace quorbit {

// What the call gives while no file may grow beyond so many bytes. Report nothing in it: the test's
// own output may go to a file.
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
