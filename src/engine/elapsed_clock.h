// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The elapsed time of a run: a monotonic clock in whole seconds that can be paused. Any thread.

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
    // Starts at once.
    explicit ElapsedClock(Now now = std::chrono::steady_clock::now);

    void Pause();   // calls do not nest
    void Resume();  // starts a paused clock again
    void Stop();    // for good
    [[nodiscard]] std::int64_t Seconds() const;
    // Hours, minutes, seconds without leading zeros: "0:2:7".
    [[nodiscard]] std::string Text() const;

private:
    mutable std::mutex m_mutex;
    Now m_now;
    std::chrono::steady_clock::time_point m_started;
    std::chrono::steady_clock::duration m_before{};
    bool m_bRunning = true;
    bool m_bStopped = false;
};

}  // namespace quorbit
