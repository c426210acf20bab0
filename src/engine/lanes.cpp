// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/lanes.h"

#include <algorithm>
#include <utility>

#include "platform/coarse_clock.h"

namespace quorbit {
namespace {

constexpr unsigned kSampleOneIn = 8;  // while the calling thread does the work
constexpr unsigned kSamplesToDecide = 8;
// A shorter wait is not worth a hand-over to another thread.
constexpr std::chrono::microseconds kWorthwhileWait{200};

}  // namespace

Lanes::Lanes(unsigned width)
    : m_bAdapts(width == 0), m_nWidth(std::clamp(width, 1U, kMost)), m_nWanted(m_nWidth)
{
}

Lanes::~Lanes()
{
    Stop();
    {
        const std::lock_guard lock(m_mutex);
        m_bEnds = true;
    }
    m_changed.notify_all();
    for (std::thread& lane : m_lanes) {
        lane.join();
    }
}

void Lanes::Do(std::function<void()> work)
{
    if (!AreUsed()) {
        if (!m_bAdapts || m_nUntilSample-- > 0) {
            return work();
        }
        m_nUntilSample = kSampleOneIn - 1;
        const Sample sample = Measure(work);
        const std::lock_guard lock(m_mutex);
        Learn(sample);
        m_nWidth = m_nWanted;
        return;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_work.push_back(std::move(work));
        m_nWidth = m_nWanted;
    }
    while (m_lanes.size() < m_nWidth) {
        m_lanes.emplace_back([this] { RunLane(); });
    }
    m_changed.notify_one();
}

void Lanes::Stop()
{
    std::unique_lock lock(m_mutex);
    m_work.clear();
    m_changed.wait(lock, [this] { return m_nRunning == 0; });
}

Lanes::Sample Lanes::Measure(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    const auto processor = ThreadTime();
    work();
    return {std::chrono::steady_clock::now() - begin, ThreadTime() - processor, 1};
}

// Decides how many lanes keep the processor busy while the others wait.
void Lanes::Learn(const Sample& sample)
{
    m_sample.wall += sample.wall;
    m_sample.processor += sample.processor;
    if (++m_sample.count < kSamplesToDecide) {
        return;
    }
    const Sample all = std::exchange(m_sample, {});
    if (!m_bAdapts) {
        return;
    }
    const auto waited = (all.wall - all.processor) / all.count;
    const auto ratio = all.wall / std::max(all.processor, std::chrono::nanoseconds(1));
    m_nWanted = waited < kWorthwhileWait
                    ? 1
                    : static_cast<unsigned>(std::clamp<std::int64_t>(ratio, 1, kMost));
}

void Lanes::RunLane()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_bEnds || !m_work.empty(); });
        if (m_bEnds) {
            return;
        }
        std::function<void()> work = std::move(m_work.front());
        m_work.pop_front();
        ++m_nRunning;
        lock.unlock();
        const Sample sample = Measure(work);
        work = nullptr;  // may close files and folders
        lock.lock();
        Learn(sample);
        if (--m_nRunning == 0) {
            m_changed.notify_all();
        }
    }
}

}  // namespace quorbit
