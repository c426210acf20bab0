// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Decides when to prefetch source files: only while the disk is slower than the page cache. One
// object per run, because all folders share that cache. Worker thread only.

#pragma once

#include <cstddef>

#include "platform/file_system.h"

namespace quorbit {

class ReadAheadPolicy {
public:
    // True while source files should be prefetched.
    [[nodiscard]] bool Pays() const { return m_bPays; }
    // Returns how to open the next file. One file in 16 is checked for being cached.
    [[nodiscard]] ReadAhead Next();
    // Records whether a file opened with ReadAhead::Start was cached. inVain: the value of
    // FileSystem::FetchedInVain.
    void Learn(bool wasCached, std::size_t inVain);
    // Records the value of FileSystem::FetchedInVain and turns prefetching off after 128 cached
    // files in a row.
    void LearnFetched(std::size_t inVain);

private:
    bool m_bPays = false;
    unsigned m_nUntilSample = 0;
    std::size_t m_nInVainBefore = 0;
};

}  // namespace quorbit
