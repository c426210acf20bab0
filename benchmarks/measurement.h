// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Measures one benchmark: Quorbit and its peers in turn, round after round.

#pragma once

#include <string>
#include <vector>

#include "benchmarks/bench_folder.h"
#include "benchmarks/benchmark.h"

namespace quorbit::bench {

// One line of the table.
struct Figure {
    std::string against;
    double ours = 0;    // seconds or MiB
    double theirs = 0;  // the same unit
    double ratio = 0;   // median of the ratios of each round
    double bar = 0;
    [[nodiscard]] bool Met() const { return ratio <= bar; }
};

// The figures of one benchmark; why there are none, if the benchmark cannot be measured here.
struct BenchmarkResult {
    std::vector<Figure> figures;
    std::string skipped;
};

[[nodiscard]] BenchmarkResult Measure(const Benchmark& benchmark, const BenchFolder& folder);

}  // namespace quorbit::bench
