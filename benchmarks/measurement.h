// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Measures one benchmark: runs Quorbit and its peers in turn, in several rounds.

#pragma once

#include <string>
#include <vector>

#include "benchmarks/bench_folder.h"
#include "benchmarks/benchmark.h"

namespace quorbit::bench {

// A row of the table.
struct Figure {
    std::string against;  // the peer
    double ours = 0;      // median, seconds or MiB
    double theirs = 0;    // the same unit
    double ratio = 0;     // median of the ratios of the rounds
    double bar = 0;       // largest acceptable ratio
    [[nodiscard]] bool Met() const { return ratio <= bar; }
};

// The figures of one benchmark, or the reason if it cannot be measured on this machine.
struct BenchmarkResult {
    std::vector<Figure> figures;
    std::string skipped;
};

// Copy everything, with the folders.
inline constexpr std::uint32_t kWholeTree =
    DCF_NO_ATTRS | DCF_SUBFOLDERS | DCF_PRESERVE_TREE | DCF_ALL_TYPES;

// Returns the medians of the seconds, or MiB, of each round.
[[nodiscard]] Figure CompareRounds(const std::string& against, const std::vector<double>& ours,
                                   const std::vector<double>& theirs, double bar);

// Ends the process if a program fails or gives a wrong result, see GiveUp.
[[nodiscard]] BenchmarkResult Measure(const Benchmark& benchmark, const BenchFolder& folder);

}  // namespace quorbit::bench
