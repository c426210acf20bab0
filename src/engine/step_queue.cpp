// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/step_queue.h"

#include <utility>

#include "engine/run_flags.h"
#include "platform/coarse_clock.h"

namespace quorbit {

void StepQueue::Add(std::function<void()> step)
{
    Push({nullptr, std::move(step)});
}

void StepQueue::Add(const std::shared_ptr<PendingFile>& file, std::function<void()> prepare,
                    std::function<void()> step)
{
    file->ready = false;
    m_lanes.Do([file, prepare = std::move(prepare)] {
        if (!g_bStopRun) {
            prepare();
        }
        file->ready = true;
        file->ready.notify_one();
    });
    ++m_nFiles;
    Push({file, std::move(step)});
}

void StepQueue::Push(Step step)
{
    if (m_steps.empty()) {
        m_since = CoarseNow();
    }
    m_steps.push_back(std::move(step));
    while (!m_steps.empty() && MayRun(m_steps.front())) {
        RunFirst();
    }
    if (IsFull()) {
        // While one half is placed, the lanes make the other half ready.
        FinishGroup(m_lanes.AreUsed() ? kMostFiles / 2 : kMostFiles);
    }
}

bool StepQueue::MayRun(const Step& step) const
{
    return !step.file ||
           (step.file->ready && (!step.file->copy || !m_ctx.m_bSyncAtEnd || g_bStopRun));
}

bool StepQueue::IsFull() const
{
    return !m_steps.empty() && (m_nFiles >= kMostFiles || m_nFolders >= kMostFolders ||
                                CoarseNow() - m_since >= kLongestWait);
}

void StepQueue::Finish()
{
    while (!m_steps.empty()) {
        FinishGroup(kMostFiles);
    }
    m_nFolders = 0;
    if (g_bStopRun) {
        m_lanes.Stop();
    }
}

void StepQueue::FinishGroup(std::size_t mostFiles)
{
    std::vector<PendingFile*> files;
    std::size_t steps = 0;
    for (; steps < m_steps.size() && files.size() < mostFiles && !g_bStopRun; ++steps) {
        if (PendingFile* file = m_steps[steps].file.get(); file != nullptr) {
            file->ready.wait(false);
            files.push_back(file);
        }
    }
    if (m_ctx.m_bSyncAtEnd && !g_bStopRun) {
        MakeDurable(files);
    }
    if (g_bStopRun) {
        m_lanes.Stop();
        steps = m_steps.size();
    }
    for (; steps > 0; --steps) {
        RunFirst();
    }
    if (m_steps.size() < kMostFolders) {
        m_nFolders = 0;
    }
    m_since = CoarseNow();
}

// On an error, discards the copies. Each file is then copied and written to the disk in its turn,
// so that the error is reported for the file that it concerns.
void StepQueue::MakeDurable(std::vector<PendingFile*>& files)
{
    std::erase_if(files, [](const PendingFile* file) { return !file->copy; });
    std::vector<PreparedCopy*> copies;
    for (const PendingFile* file : files) {
        copies.push_back(file->copy.get());
    }
    if (copies.empty() || m_ctx.m_pFiles->MakeDurable(copies)) {
        return;
    }
    for (PendingFile* file : files) {
        file->copy.reset();
    }
}

// After a stop request, discards the step.
void StepQueue::RunFirst()
{
    const Step step = std::move(m_steps.front());
    m_steps.pop_front();
    m_nFiles -= step.file ? 1 : 0;
    if (!g_bStopRun) {
        step.run();
    }
}

}  // namespace quorbit
