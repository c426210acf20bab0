// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Waits for the effect of another thread or process.

#pragma once

#include <chrono>
#include <thread>

namespace quorbit {

// Polls every millisecond until the condition holds. Returns false after 30 seconds.
template <class Condition>
[[nodiscard]] bool Eventually(Condition condition)
{
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!condition()) {
        const auto now = std::chrono::steady_clock::now();
        if (now > limit) {
            return false;
        }
        std::this_thread::sleep_until(now + std::chrono::milliseconds(1));
    }
    return true;
}

}  // namespace quorbit
