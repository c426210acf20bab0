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

#include <atomic>
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

// What can be done for a file ahead of its turn, on any thread.
struct AheadWork {
    std::function<void()> look;  // finds out whether a copy should be made; may be empty
    std::function<void()> copy;  // makes it
};

class StepQueue {
public:
    // Bounds of what waits. Each copy has at most one open descriptor and less than kLongCopy
    // bytes, each folder two or three descriptors. The bounds of copies and folders are lower if
    // the process may open few files.
    static constexpr std::size_t kMostFiles = 4096;
    static constexpr std::size_t kMostCopies = 256;
    // On lanes, and also of the files whose copies have not begun. More copies would wait so long
    // that the system asks for the names of their files again.
    static constexpr std::size_t kMostCopiesOnLanes = 128;
    static constexpr std::size_t kMostFolders = 48;
    static constexpr std::chrono::milliseconds kLongestWait{1000};

    // The arguments are not owned and must outlive this object.
    StepQueue(CRunContext& ctx, Lanes& lanes);
    StepQueue(const StepQueue&) = delete;
    StepQueue& operator=(const StepQueue&) = delete;

    // Adds a step. Carries it out at once if nothing waits.
    void Add(std::function<void()> step);
    // Adds a file with its step. folder: see Lanes::Do.
    void Add(const void* folder, const std::shared_ptr<PendingFile>& file, AheadWork ahead,
             std::function<void()> step);
    // The number of folders that waiting steps keep open. Their owners count them, on any thread.
    [[nodiscard]] std::atomic<std::size_t>& OpenFolders() { return m_nFolders; }
    // Carries out all steps. After a stop request, discards them instead, with their copies.
    void Finish();

private:
    struct Step {
        std::shared_ptr<PendingFile> file;  // null for other steps
        std::function<void()> run;
        const void* folder = nullptr;
        std::function<void()> copy = {};  // of AheadWork
        bool bCounted = false;            // in m_nCopies
    };
    void Push(Step step);
    [[nodiscard]] std::size_t MostCopies() const;
    [[nodiscard]] std::size_t MostFolders() const;
    [[nodiscard]] bool IsFull() const;
    [[nodiscard]] bool MayRun(const Step& step) const;
    void StartOnLane(const Step& step, std::function<void()> work);
    void StartCopies();
    void FinishGroup(std::size_t most);
    [[nodiscard]] std::size_t WaitForGroup(std::size_t most);
    void MakeDurable(std::size_t steps);
    void RunFirst();

    CRunContext& m_ctx;
    Lanes& m_lanes;
    const std::size_t m_nOpenFiles;  // the limit of the process
    std::atomic<std::size_t> m_nFolders = 0;
    std::deque<Step> m_steps;
    std::size_t m_nDecided = 0;  // of the first steps it is decided whether a copy is made ahead
    std::size_t m_nFiles = 0;
    std::size_t m_nCopies = 0;
    std::chrono::steady_clock::time_point m_since;  // when the first step became the first
};

}  // namespace quorbit
