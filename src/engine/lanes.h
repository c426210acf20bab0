// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Threads that make files ready ahead of their turn. At a distance, a file costs round trips, and
// the round trips of many files pass at the same time. On a local disk, where all is in memory, the
// calling thread does the work itself, without any cost. Lanes take turns among folders, because
// many file systems do one look-up or change of a folder after the other.
//
// One lock guards the queue; work runs without it. Owned and called by the worker thread.

#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace quorbit {

class Lanes {
public:
    static constexpr unsigned kMost = 32;

    // width: 1 to kMost, or 0 to adapt: more lanes the longer the work waits rather than works.
    explicit Lanes(unsigned width);
    // Calls Stop.
    ~Lanes();
    Lanes(const Lanes&) = delete;
    Lanes& operator=(const Lanes&) = delete;

    // True if Do returns before the work is done.
    [[nodiscard]] bool AreUsed() const { return m_nWidth > 1; }
    // Does the work, at once or on one of the lanes, in any order. folder: what the work is mostly
    // about; only compared.
    void Do(const void* folder, std::function<void()> work);
    // The same for work that tells nothing about how long files wait, such as tidying up.
    void DoAside(const void* folder, std::function<void()> work);
    // Returns when all work is done.
    void Wait();
    // Discards work that has not begun and waits for the rest.
    void Stop();

private:
    struct Work {
        std::function<void()> run;
        bool bMeasured = true;
    };
    struct FolderWork {
        const void* folder;
        std::deque<Work> work;  // not empty
    };
    // Of the work since the last decision.
    struct Sample {
        std::chrono::nanoseconds wall{};
        std::chrono::nanoseconds processor{};
        unsigned count = 0;
    };

    [[nodiscard]] static Sample Measure(const std::function<void()>& work);
    void Hand(const void* folder, Work work);
    void RunLane();
    // With the lock.
    void Learn(const Sample& sample);
    void Put(const void* folder, Work work);
    [[nodiscard]] Work Take();

    const bool m_bAdapts;
    unsigned m_nWidth;  // worker thread only
    unsigned m_nUntilSample = 0;

    std::mutex m_mutex;  // of the following
    std::condition_variable m_changed;
    std::deque<FolderWork> m_waiting;  // in the order of their turns
    unsigned m_nRunning = 0;
    unsigned m_nWanted;
    bool m_bEnds = false;
    Sample m_sample;
    bool m_bDecided = false;  // at least once

    std::vector<std::thread> m_lanes;
};

}  // namespace quorbit
