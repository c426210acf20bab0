// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/benchmark.h"

namespace quorbit::bench {
namespace {

constexpr std::uint64_t kKB = 1024;
constexpr std::uint64_t kMB = 1024 * kKB;

constexpr TreeShape kSmall{500, 100, 4 * kKB};
constexpr TreeShape kSmallQuick{50, 100, 4 * kKB};

}  // namespace

const std::vector<Benchmark>& AllBenchmarks()
{
    static const std::vector<Benchmark> benchmarks{
        {.name = "small-warm",
         .what = "fresh copy, in memory",
         .work = Work::FreshCopy,
         .tree = "small",
         .shape = kSmall,
         .quickShape = kSmallQuick,
         .bars = {{"cp -a", 0.95}, {"rsync -a", 0.75}}},
        {.name = "small-cold",
         .what = "fresh copy, caches dropped",
         .work = Work::FreshCopy,
         .tree = "small",
         .shape = kSmall,
         .quickShape = kSmallQuick,
         .cold = true,
         .bars = {{"cp -a", 0.60}, {"rsync -a", 0.35}}},
        {.name = "large",
         .what = "fresh copy, in memory",
         .work = Work::FreshCopy,
         .tree = "large",
         .shape = {1, 200, 10 * kMB},
         .quickShape = {1, 20, 10 * kMB},
         .bars = {{"cp -a", 1.00}, {"rsync -a", 0.35}}},
        {.name = "huge",
         .what = "fresh copy, in memory",
         .work = Work::FreshCopy,
         .tree = "huge",
         .shape = {1, 1, 2048 * kMB},
         .quickShape = {1, 1, 256 * kMB},
         .bars = {{"cp -a", 1.00}, {"rsync -a", 0.35}}},
        {.name = "unchanged",
         .what = "sync, nothing to do, in memory",
         .work = Work::UnchangedSync,
         .tree = "small",
         .shape = kSmall,
         .quickShape = kSmallQuick,
         .bars = {{"rsync -a", 0.80}}},
        {.name = "count",
         .what = "count pass alone, in memory",
         .work = Work::Count,
         .tree = "count",
         .shape = {400, 500, 0},
         .quickShape = {40, 500, 0},
         .bars = {{"find -type f", 0.80}}},
        {.name = "delete",
         .what = "delete entry, every file",
         .work = Work::DeleteFiles,
         .tree = "small",
         .shape = kSmall,
         .quickShape = kSmallQuick,
         .bars = {{"rm -rf", 1.40}}},
        {.name = "delete-folder",
         .what = "delete entry, folder as a whole",
         .work = Work::DeleteFolder,
         .tree = "small",
         .shape = kSmall,
         .quickShape = kSmallQuick,
         .bars = {{"rm -rf", 1.40}}},
        {.name = "window",
         .what = "fresh copy in the dialog",
         .work = Work::Window,
         .tree = "small",
         .shape = kSmall,
         .quickShape = kSmallQuick,
         .bars = {{"quorbit /I", 1.10}, {"100 ms, longest wait", 1.00}}},
        {.name = "memory",
         .what = "largest memory of a fresh copy",
         .work = Work::Memory,
         .tree = "million",
         .shape = {1000, 1000, 0},
         .quickShape = {100, 1000, 0},
         .slow = true,
         .bars = {{"32 MiB", 1.00}, {"a tenth of the tree", 1.05}}},
    };
    return benchmarks;
}

}  // namespace quorbit::bench
