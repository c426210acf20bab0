// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Makes every write that goes beyond a size fail with EFBIG, as on a full disk, also for root.
// Report nothing while it lives: the test's own output may go to a file.

#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

namespace quorbit {

class ScopedFileSizeLimit {
public:
    explicit ScopedFileSizeLimit(rlim_t bytes)
    {
        m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &m_old), 0);
        rlimit limit = m_old;
        limit.rlim_cur = bytes;
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~ScopedFileSizeLimit()
    {
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &m_old), 0);
        (void)std::signal(SIGXFSZ, m_oldHandler);
    }
    ScopedFileSizeLimit(const ScopedFileSizeLimit&) = delete;
    ScopedFileSizeLimit& operator=(const ScopedFileSizeLimit&) = delete;

private:
    void (*m_oldHandler)(int) = SIG_DFL;
    rlimit m_old{};
};

}  // namespace quorbit
