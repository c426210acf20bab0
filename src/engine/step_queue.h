// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The steps of a walk that were looked up but not carried out. They are carried out strictly in the
// order in which they were added, so the log, the counters and the destination follow the listing.
//
// Files are made ready ahead of their turn, on lanes where that pays. Copies that are ready wait
// until a group of them is on the disk (FileSystem::MakeDurable), because one call for many files
// is far cheaper than one for each. A group waits at most a second, and is bounded in files, bytes
// and open descriptors. Worker thread only.

#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "engine/lanes.h"
#include "engine/pending_file.h"
#include "engine/run_context.h"

namespace quorbit {

class StepQueue {
public:
    // Bounds of what waits. Each copy has an open descriptor and less than kLongCopy bytes, each
    // folder one or two descriptors.
    static constexpr std::size_t kMostFiles = 256;
    static constexpr std::size_t kMostFolders = 40;
    static constexpr std::chrono::milliseconds kLongestWait{1000};

    // The arguments are not owned and must outlive this object.
    StepQueue(CRunContext& ctx, Lanes& lanes) : m_ctx(ctx), m_lanes(lanes) {}
    StepQueue(const StepQueue&) = delete;
    StepQueue& operator=(const StepQueue&) = delete;

    // Adds a step. Carries it out at once if nothing waits.
    void Add(std::function<void()> step);
    // Adds a file: what makes it ready, on any thread, and its step.
    void Add(const std::shared_ptr<PendingFile>& file, std::function<void()> prepare,
             std::function<void()> step);
    // Call it for each folder that waiting steps keep open.
    void CountFolder() { ++m_nFolders; }
    // Carries out all steps. After a stop request, discards them instead, with their copies.
    void Finish();

private:
    struct Step {
        std::shared_ptr<PendingFile> file;  // null for other steps
        std::function<void()> run;
    };
    void Push(Step step);
    [[nodiscard]] bool IsFull() const;
    [[nodiscard]] bool MayRun(const Step& step) const;
    void FinishGroup(std::size_t mostFiles);
    void MakeDurable(std::vector<PendingFile*>& files);
    void RunFirst();

    CRunContext& m_ctx;
    Lanes& m_lanes;
    std::deque<Step> m_steps;
    std::size_t m_nFiles = 0;
    std::size_t m_nFolders = 0;
    std::chrono::steady_clock::time_point m_since;  // when the first step was added
};

}  // namespace quorbit
