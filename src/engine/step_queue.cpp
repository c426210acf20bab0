// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/step_queue.h"

#include <algorithm>
#include <utility>

#include "engine/run_flags.h"
#include "platform/coarse_clock.h"
#include "platform/stop_signals.h"

namespace quorbit {

StepQueue::StepQueue(CRunContext& ctx, Lanes& lanes)
    : m_ctx(ctx), m_lanes(lanes), m_nOpenFiles(OpenFileLimit())
{
}

void StepQueue::Add(std::function<void()> step)
{
    Push({nullptr, std::move(step)});
}

void StepQueue::Add(const void* folder, const std::shared_ptr<PendingFile>& file, AheadWork ahead,
                    std::function<void()> step)
{
    ++m_nFiles;
    Step added{file, std::move(step), folder};
    if (m_lanes.AreUsed()) {
        if (ahead.look) {
            StartOnLane(added, std::move(ahead.look));
        }
        added.copy = std::move(ahead.copy);
        return Push(std::move(added));
    }
    m_lanes.Do(folder, [&] {
        if (ahead.look) {
            ahead.look();
        }
        if (file->isToCopy) {
            ahead.copy();
        }
    });
    file->isToCopy = false;
    added.bCounted = file->copy != nullptr;
    m_nCopies += added.bCounted ? 1 : 0;
    Push(std::move(added));
}

void StepQueue::Push(Step step)
{
    if (m_steps.empty()) {
        m_since = CoarseNow();
    }
    m_steps.push_back(std::move(step));
    StartCopies();
    while (!m_steps.empty() && MayRun(m_steps.front())) {
        RunFirst();
        StartCopies();
    }
    if (IsFull()) {
        // While one half is placed, the lanes make the other half ready.
        FinishGroup(m_lanes.AreUsed() ? (m_steps.size() + 1) / 2 : m_steps.size());
    }
}

bool StepQueue::MayRun(const Step& step) const
{
    if (!step.file) {
        return true;
    }
    if (m_nDecided == 0 || !step.file->ready) {
        return false;
    }
    if (!step.file->copy || g_bStopRun) {
        return true;
    }
    // If the lanes have little to do, listing more files is more urgent than placing copies.
    const bool mayPlace = !m_lanes.AreUsed() || m_nFiles >= MostCopies();
    return mayPlace && (step.file->isDurable || !m_ctx.m_bSyncAtEnd);
}

std::size_t StepQueue::MostCopies() const
{
    return std::min(m_lanes.AreUsed() ? kMostCopiesOnLanes : kMostCopies, m_nOpenFiles / 4);
}

std::size_t StepQueue::MostFolders() const
{
    return std::min(kMostFolders, m_nOpenFiles / 16);
}

bool StepQueue::IsFull() const
{
    const std::size_t next = m_lanes.AreUsed() ? MostCopies() : 0;
    return !m_steps.empty() &&
           (m_nFiles >= kMostFiles || m_nFolders >= MostFolders() ||
            (m_nCopies >= MostCopies() && m_steps.size() >= m_nDecided + next) ||
            CoarseNow() - m_since >= kLongestWait);
}

void StepQueue::StartOnLane(const Step& step, std::function<void()> work)
{
    step.file->ready = false;
    m_lanes.Do(step.folder, [file = step.file, work = std::move(work)]() mutable {
        if (!g_bStopRun) {
            work();
        }
        work = nullptr;  // uses folders, which may be closed once the file is ready
        file->ready = true;
        file->ready.notify_one();
    });
}

// Begins copies in the order of the steps, so that those that are placed first are ready first.
void StepQueue::StartCopies()
{
    for (; m_nDecided < m_steps.size(); ++m_nDecided) {
        Step& step = m_steps[m_nDecided];
        if (!step.file) {
            continue;
        }
        if (!step.file->ready || m_nCopies >= MostCopies()) {
            return;
        }
        if (step.file->isToCopy) {
            ++m_nCopies;
            step.bCounted = true;
            StartOnLane(step, std::move(step.copy));
        }
    }
}

void StepQueue::Finish()
{
    while (!m_steps.empty()) {
        FinishGroup(m_steps.size());
    }
    if (g_bStopRun) {
        m_lanes.Stop();
    }
    m_lanes.Wait();
}

void StepQueue::FinishGroup(std::size_t most)
{
    std::size_t steps = WaitForGroup(most);
    if (m_ctx.m_bSyncAtEnd && !g_bStopRun) {
        MakeDurable(steps);
    }
    if (g_bStopRun) {
        m_lanes.Stop();
        steps = m_steps.size();
    }
    for (; steps > 0; --steps) {
        RunFirst();
        StartCopies();
    }
}

// Waits until the first steps, or as many of them as the bound of copies permits, can be carried
// out. Returns how many.
std::size_t StepQueue::WaitForGroup(std::size_t most)
{
    std::size_t steps = 0;
    for (; steps < most; ++steps) {
        const PendingFile* file = m_steps[steps].file.get();
        if (file == nullptr) {
            continue;
        }
        file->ready.wait(false);
        StartCopies();
        if (g_bStopRun || m_nDecided <= steps) {
            break;
        }
        file->ready.wait(false);
    }
    return steps;
}

// On an error, discards the copies. Each file is then copied and written to the disk in its turn,
// so that the error is reported for the file that it concerns.
void StepQueue::MakeDurable(std::size_t steps)
{
    std::vector<PreparedCopy*> copies;
    for (std::size_t i = 0; i < steps; ++i) {
        if (m_steps[i].file && m_steps[i].file->copy) {
            copies.push_back(m_steps[i].file->copy.get());
        }
    }
    if (copies.empty() || m_ctx.m_pFiles->MakeDurable(copies)) {
        return;
    }
    for (std::size_t i = 0; i < steps; ++i) {
        if (m_steps[i].file) {
            m_steps[i].file->copy.reset();
        }
    }
}

// After a stop request, discards the step.
void StepQueue::RunFirst()
{
    const Step step = std::move(m_steps.front());
    m_steps.pop_front();
    m_nDecided -= m_nDecided > 0 ? 1 : 0;
    m_nFiles -= step.file ? 1 : 0;
    m_nCopies -= step.bCounted ? 1 : 0;
    m_since = CoarseNow();
    if (!g_bStopRun) {
        step.run();
    }
    if (step.file && step.file->copy) {
        // Deletes the file that the copy has replaced.
        m_lanes.DoAside(step.folder, [file = step.file] { file->copy.reset(); });
    }
}

}  // namespace quorbit
