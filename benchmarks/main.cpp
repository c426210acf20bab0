// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Compares Quorbit with cp, rsync, find and rm on generated trees. Started by ./bench.

#include <algorithm>

#include "benchmarks/bench_folder.h"
#include "benchmarks/benchmark.h"
#include "benchmarks/measurement.h"
#include "benchmarks/options.h"
#include "benchmarks/report.h"

namespace {

using namespace quorbit::bench;

bool IsWanted(const Benchmark& benchmark, const Options& options)
{
    if (!options.benchmarks.empty())
        return std::ranges::count(options.benchmarks, benchmark.name) != 0;
    return options.all || !benchmark.slow;
}

void CheckNames(const Options& options)
{
    for (const std::string& name : options.benchmarks) {
        if (std::ranges::count(AllBenchmarks(), name, &Benchmark::name) == 0)
            GiveUp("there is no benchmark " + name);
    }
}

}  // namespace

int main(int argc, char** argv)
{
    const Options options = ParseOptions(argc, argv);
    CheckNames(options);
    const BenchFolder folder(options);
    Report report;
    report.PrintHead(options);
    for (const Benchmark& benchmark : AllBenchmarks()) {
        if (IsWanted(benchmark, options))
            report.PrintRow(benchmark, options.quick, Measure(benchmark, folder));
    }
    report.PrintFoot();
    return 0;
}
