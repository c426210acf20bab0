// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/report.h"

#include <sys/utsname.h>

#include <cstdio>
#include <string>
#include <thread>

namespace quorbit::bench {

void Report::PrintHead(const Options& options) const
{
    utsname system{};
    uname(&system);
    std::printf(
        "Quorbit against its peers: medians of %u rounds in turn, %s %s, %u cores, in %s\n\n",
        options.rounds, system.sysname, system.release, std::thread::hardware_concurrency(),
        options.folder.c_str());
    std::printf("%-24s %10s   %10s   %6s %6s\n", "Benchmark, and against whom", "Quorbit", "Peer",
                "Ratio", "Bar");
}

void Report::PrintRow(const Benchmark& benchmark, bool quick, const BenchmarkResult& result)
{
    const TreeShape& shape = quick ? benchmark.quickShape : benchmark.shape;
    std::printf("%s: %s, %s\n", benchmark.name.c_str(), benchmark.what.c_str(),
                shape.Text().c_str());
    if (!result.skipped.empty())
        std::printf("  %s\n", result.skipped.c_str());
    const char* const unit = benchmark.work == Work::Memory ? "MiB" : "s";
    for (const Figure& figure : result.figures) {
        std::printf("  %-22s %8.3f %-3s %8.3f %-3s %6.2f %6.2f  %s\n", figure.against.c_str(),
                    figure.ours, unit, figure.theirs, unit, figure.ratio, figure.bar,
                    figure.Met() ? "met" : "MISSED");
        m_nMet += figure.Met() ? 1 : 0;
        ++m_nBars;
    }
    std::fflush(stdout);
}

void Report::PrintFoot() const
{
    std::puts(
        "\nRatio is the median of the ratios of each round; Quorbit writes its log in all of "
        "them.\n"
        "  work      Quorbit with SyncAtEnd=0 against the bare peer: both leave the writing to the "
        "system\n"
        "  on disk   Quorbit as it ships, which waits until the copies are on the disk, against "
        "the "
        "peer and a sync -f\n"
        "The count pass is measured by a program of its own that calls it and nothing else.");
    std::printf("%u of %u bars met\n", m_nMet, m_nBars);
}

}  // namespace quorbit::bench
