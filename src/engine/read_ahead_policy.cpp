// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/read_ahead_policy.h"

namespace quorbit {
namespace {

constexpr unsigned kSampleEvery = 16;       // one file in this many is checked
constexpr std::size_t kInVainToStop = 128;  // cached files in a row

}  // namespace

ReadAhead ReadAheadPolicy::Next()
{
    if (m_bPays) {
        return ReadAhead::No;
    }
    if (m_nUntilSample > 0) {
        --m_nUntilSample;
        return ReadAhead::No;
    }
    m_nUntilSample = kSampleEvery - 1;
    return ReadAhead::Start;
}

void ReadAheadPolicy::Learn(bool wasCached, std::size_t inVain)
{
    if (!wasCached) {
        m_bPays = true;
        m_nInVainBefore = inVain;
    }
}

void ReadAheadPolicy::LearnFetched(std::size_t inVain)
{
    if (inVain < m_nInVainBefore) {
        m_nInVainBefore = 0;  // a file was not cached, so the count was reset
    }
    if (inVain - m_nInVainBefore >= kInVainToStop) {
        m_bPays = false;
    }
}

}  // namespace quorbit
