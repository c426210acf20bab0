// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Whether it pays to have files fetched before their turn: only while the disk turns out to be
// slower than the memory. One for a whole run, since the caches are one. Worker thread only.

#pragma once

#include <cstddef>

#include "platform/file_system.h"

namespace quorbit {

class ReadAheadPolicy {
public:
    [[nodiscard]] bool Pays() const { return m_bPays; }
    // How the next file is to be opened: now and then one is asked whether it is in memory.
    [[nodiscard]] ReadAhead Next();
    // What came of a file that was opened with ReadAhead::Start. inVain:
    // FileSystem::FetchedInVain.
    void Learn(bool wasCached, std::size_t inVain);
    // What came of the files that were fetched.
    void LearnFetched(std::size_t inVain);

private:
    bool m_bPays = false;
    unsigned m_nUntilSample = 0;
    std::size_t m_nInVainBefore = 0;
};

}  // namespace quorbit
