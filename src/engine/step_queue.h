// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The steps of a walk that were looked up but not carried out. They are carried out strictly in the
// order in which they were added, so the log, the counters and the destination follow the listing.
//
// Files whose copies are ready wait until a group of them is on the disk (FileSystem::MakeDurable),
// because one call for many files is far cheaper than one for each. A group waits at most a second,
// and is bounded in files, bytes and open descriptors. Worker thread only.

#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>

#include "engine/pending_file.h"
#include "engine/run_context.h"

namespace quorbit {

class StepQueue {
public:
    // Bounds of a group.
    static constexpr std::size_t kMostCopies = 400;  // each has an open descriptor
    static constexpr std::size_t kMostFolders = 40;  // each has one or two
    static constexpr std::uint64_t kMostBytes = 256U * 1024 * 1024;
    static constexpr std::chrono::milliseconds kLongestWait{1000};

    // ctx is not owned and must outlive this object.
    explicit StepQueue(CRunContext& ctx) : m_ctx(ctx) {}
    StepQueue(const StepQueue&) = delete;
    StepQueue& operator=(const StepQueue&) = delete;

    // Adds a step. Carries it out at once if nothing waits.
    void Add(std::function<void()> step);
    // Adds the step of a file, which may use its copy.
    void Add(std::shared_ptr<PendingFile> file, std::function<void()> step);
    // Call it for each folder that waiting steps keep open.
    void CountFolder() { ++m_nFolders; }
    // Carries out all steps if a group has waited long enough.
    void FinishIfDue();
    // Carries out all steps. After a stop request, discards them instead, with their copies.
    void Finish();

private:
    struct Step {
        std::shared_ptr<PendingFile> file;  // null for other steps
        std::function<void()> run;
    };
    [[nodiscard]] bool IsFull() const;
    void MakeCopiesDurable();

    CRunContext& m_ctx;
    std::deque<Step> m_steps;
    std::size_t m_nCopies = 0;
    std::size_t m_nFolders = 0;
    std::uint64_t m_nBytes = 0;
    std::chrono::steady_clock::time_point m_since;  // when the first copy was added
};

}  // namespace quorbit
