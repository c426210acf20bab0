// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Measures a benchmark in which one side is a folder at a distance of one millisecond a call.

#pragma once

#include "benchmarks/measurement.h"

namespace quorbit::bench {

// As Measure, for the kinds of work whose names begin with Distant.
[[nodiscard]] BenchmarkResult MeasureAtDistance(const Benchmark& benchmark,
                                                const BenchFolder& folder);

}  // namespace quorbit::bench
