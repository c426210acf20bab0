// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/lanes.h"

#include <algorithm>
#include <utility>

#include "platform/coarse_clock.h"

namespace quorbit {
namespace {

constexpr unsigned kSamplesToDecide = 8;
// While the calling thread does the work, and once it was decided that it does.
constexpr unsigned kSampleOneIn = 8;
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

void Lanes::Do(const void* folder, std::function<void()> work)
{
    if (!AreUsed()) {
        if (!m_bAdapts || m_nUntilSample > 0) {
            m_nUntilSample -= m_bAdapts ? 1 : 0;
            return work();
        }
        const Sample sample = Measure(work);
        const std::lock_guard lock(m_mutex);
        Learn(sample);
        m_nUntilSample = m_bDecided ? kSampleOneIn - 1 : 0;
        m_nWidth = m_nWanted;
        return;
    }
    Hand(folder, {std::move(work)});
}

void Lanes::DoAside(const void* folder, std::function<void()> work)
{
    AreUsed() ? Hand(folder, {std::move(work), false}) : work();
}

// Leaves the work to the lanes.
void Lanes::Hand(const void* folder, Work work)
{
    {
        const std::lock_guard lock(m_mutex);
        Put(folder, std::move(work));
        m_nWidth = m_nWanted;
    }
    while (m_lanes.size() < m_nWidth) {
        m_lanes.emplace_back([this] { RunLane(); });
    }
    m_changed.notify_one();
}

void Lanes::Wait()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_nRunning == 0 && m_waiting.empty(); });
}

void Lanes::Stop()
{
    std::unique_lock lock(m_mutex);
    m_waiting.clear();
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
    m_bDecided = true;
    if (!m_bAdapts) {
        return;
    }
    const auto waited = (all.wall - all.processor) / all.count;
    const auto ratio = all.wall / std::max(all.processor, std::chrono::nanoseconds(1));
    m_nWanted = waited < kWorthwhileWait
                    ? 1
                    : static_cast<unsigned>(std::clamp<std::int64_t>(ratio, 1, kMost));
}

void Lanes::Put(const void* folder, Work work)
{
    const auto known =
        std::find_if(m_waiting.rbegin(), m_waiting.rend(),
                     [folder](const FolderWork& one) { return one.folder == folder; });
    FolderWork& own =
        known != m_waiting.rend() ? *known : m_waiting.emplace_back(FolderWork{folder, {}});
    own.work.push_back(std::move(work));
}

Lanes::Work Lanes::Take()
{
    FolderWork turn = std::move(m_waiting.front());
    m_waiting.pop_front();
    Work work = std::move(turn.work.front());
    turn.work.pop_front();
    if (!turn.work.empty()) {
        m_waiting.push_back(std::move(turn));
    }
    return work;
}

void Lanes::RunLane()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_bEnds || !m_waiting.empty(); });
        if (m_bEnds) {
            return;
        }
        Work work = Take();
        ++m_nRunning;
        lock.unlock();
        const Sample sample = Measure(work.run);
        work.run = nullptr;  // may close files and folders
        lock.lock();
        if (work.bMeasured) {
            Learn(sample);
        }
        if (--m_nRunning == 0 && m_waiting.empty()) {
            m_changed.notify_all();
        }
    }
}

}  // namespace quorbit
