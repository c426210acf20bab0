// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The errors and warnings of a run, in the order in which they occurred. Keeps the first 10,000 and
// counts the others, so that a run in which every file fails does not use up the memory. Worker
// thread only; any thread after the run.

#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "engine/run_problem.h"

namespace quorbit {

class RunProblems {
public:
    static constexpr std::size_t kMostKept = 10'000;

    void Add(RunProblem problem)
    {
        if (m_kept.size() < kMostKept) {
            m_kept.push_back(std::move(problem));
        } else {
            ++m_notKept;
        }
    }
    [[nodiscard]] const std::vector<RunProblem>& Kept() const { return m_kept; }
    // The number of further problems.
    [[nodiscard]] std::size_t NotKept() const { return m_notKept; }

private:
    std::vector<RunProblem> m_kept;
    std::size_t m_notKept = 0;
};

}  // namespace quorbit
