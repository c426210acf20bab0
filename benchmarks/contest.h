// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Measures one row: Quorbit and its peers in turn, round after round.

#pragma once

#include <string>
#include <vector>

#include "benchmarks/rows.h"
#include "benchmarks/workshop.h"

namespace quorbit::bench {

// One line of the table.
struct Finding {
    std::string against;
    double ours = 0;    // seconds or MiB
    double theirs = 0;  // the same unit
    double ratio = 0;   // median of the ratios of each round
    double bar = 0;
    [[nodiscard]] bool Met() const { return ratio <= bar; }
};

// The findings of one row; why there are none, if the row cannot be measured here.
struct RowResult {
    std::vector<Finding> findings;
    std::string skipped;
};

[[nodiscard]] RowResult MeasureRow(const Row& row, const Workshop& workshop);

}  // namespace quorbit::bench
