// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Prints the table of results to standard output, row by row. One thread at a time.

#pragma once

#include "benchmarks/measurement.h"

namespace quorbit::bench {

class Report {
public:
    void PrintHead(const Options& options) const;
    void PrintRow(const Benchmark& benchmark, bool quick, const BenchmarkResult& result);
    // Explains the columns and prints how many bars were met.
    void PrintFoot() const;

private:
    unsigned m_nMet = 0;
    unsigned m_nBars = 0;
};

}  // namespace quorbit::bench
