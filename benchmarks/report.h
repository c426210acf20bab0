// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Prints the table on standard output, line by line as the rows come in.

#pragma once

#include "benchmarks/measurement.h"

namespace quorbit::bench {

class Report {
public:
    void PrintHead(const Options& options) const;
    void PrintRow(const Benchmark& benchmark, bool quick, const BenchmarkResult& result);
    // What the columns mean, and how many bars were met.
    void PrintFoot() const;

private:
    unsigned m_nMet = 0;
    unsigned m_nBars = 0;
};

}  // namespace quorbit::bench
