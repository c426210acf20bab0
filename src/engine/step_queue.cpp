// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/step_queue.h"

#include <utility>
#include <vector>

#include "engine/run_flags.h"
#include "platform/coarse_clock.h"

namespace quorbit {

void StepQueue::Add(std::function<void()> step)
{
    Add(nullptr, std::move(step));
}

void StepQueue::Add(std::shared_ptr<PendingFile> file, std::function<void()> step)
{
    if (file && file->copy) {
        if (m_nCopies == 0) {
            m_since = CoarseNow();
        }
        ++m_nCopies;
        m_nBytes += file->data.size;
    }
    m_steps.push_back({std::move(file), std::move(step)});
    if (m_nCopies == 0 || IsFull()) {
        Finish();
    }
}

bool StepQueue::IsFull() const
{
    return m_nCopies >= kMostCopies || m_nFolders >= kMostFolders || m_nBytes >= kMostBytes ||
           CoarseNow() - m_since >= kLongestWait;
}

void StepQueue::FinishIfDue()
{
    if (m_nCopies > 0 && IsFull()) {
        Finish();
    }
}

void StepQueue::Finish()
{
    if (m_nCopies > 0 && m_ctx.m_bSyncAtEnd && !g_bStopRun) {
        MakeCopiesDurable();
    }
    while (!m_steps.empty()) {
        const Step step = std::move(m_steps.front());
        m_steps.pop_front();
        if (!g_bStopRun) {
            step.run();
        }
    }
    m_nCopies = 0;
    m_nFolders = 0;
    m_nBytes = 0;
}

// On an error, discards the copies. Each file is then copied and written to the disk in its turn,
// so that the error is reported for the file that it concerns.
void StepQueue::MakeCopiesDurable()
{
    std::vector<PreparedCopy*> copies;
    copies.reserve(m_nCopies);
    for (const Step& step : m_steps) {
        if (step.file && step.file->copy) {
            copies.push_back(step.file->copy.get());
        }
    }
    if (m_ctx.m_pFiles->MakeDurable(copies)) {
        return;
    }
    for (const Step& step : m_steps) {
        if (step.file) {
            step.file->copy.reset();
        }
    }
}

}  // namespace quorbit
