// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/elapsed_clock.h"

#include <utility>

namespace quorbit {

ElapsedClock::ElapsedClock(Now now) : m_now(std::move(now)), m_started(m_now()) {}

void ElapsedClock::Pause()
{
    const std::lock_guard lock(m_mutex);
    Hold();
}

void ElapsedClock::Hold()
{
    if (m_bRunning) {
        m_before += m_now() - m_started;
        m_bRunning = false;
    }
}

void ElapsedClock::Resume()
{
    const std::lock_guard lock(m_mutex);
    if (!m_bRunning && !m_bStopped) {
        m_started = m_now();
        m_bRunning = true;
    }
}

void ElapsedClock::Stop()
{
    const std::lock_guard lock(m_mutex);
    Hold();
    m_bStopped = true;
}

std::int64_t ElapsedClock::Seconds() const
{
    const std::lock_guard lock(m_mutex);
    auto elapsed = m_before;
    if (m_bRunning) {
        elapsed += m_now() - m_started;
    }
    return std::chrono::duration_cast<std::chrono::seconds>(elapsed).count();
}

std::string ElapsedClock::Text() const
{
    const std::int64_t seconds = Seconds();
    return std::to_string(seconds / 3600) + ":" + std::to_string(seconds / 60 % 60) + ":" +
           std::to_string(seconds % 60);
}

}  // namespace quorbit
