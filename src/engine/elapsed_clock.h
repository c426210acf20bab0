// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Measures the elapsed time of a run with a monotonic clock that can be paused. Any thread.

#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>

namespace quorbit {

class ElapsedClock {
public:
    using Now = std::function<std::chrono::steady_clock::time_point()>;
    // Starts the clock.
    explicit ElapsedClock(Now now = std::chrono::steady_clock::now);

    void Pause();   // calls do not nest
    void Resume();  // restarts a paused clock; no effect after Stop
    void Stop();    // final
    // Complete seconds, without pauses.
    [[nodiscard]] std::int64_t Seconds() const;
    // Returns hours, minutes and seconds without leading zeros: "0:2:7".
    [[nodiscard]] std::string Text() const;

private:
    void Hold();  // with the mutex locked

    mutable std::mutex m_mutex;
    Now m_now;
    std::chrono::steady_clock::time_point m_started;
    std::chrono::steady_clock::duration m_before{};
    bool m_bRunning = true;
    bool m_bStopped = false;
};

}  // namespace quorbit
