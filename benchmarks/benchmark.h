// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What is measured, as data.

#pragma once

#include <string>
#include <vector>

#include "benchmarks/test_tree.h"

namespace quorbit::bench {

enum class Work {
    FreshCopy,      // the tree into a folder that is not there yet
    UnchangedSync,  // a sync that finds nothing to do
    Count,          // the count pass alone
    DeleteFiles,    // an entry that deletes every file
    DeleteFolder,   // an entry that deletes the folder as a whole
    Window,         // a fresh copy in the dialog, against the same without a window
    Memory,         // how much a fresh copy holds in memory
};

// The program to be measured against, and the ratio of Quorbit's figure to its figure that is
// wanted at most.
struct Bar {
    std::string peer;
    double ratio = 0;
};

struct Benchmark {
    std::string name;
    std::string what;
    Work work = Work::FreshCopy;
    std::string tree;  // benchmarks with the same one share it
    TreeShape shape;
    TreeShape quickShape;
    bool cold = false;  // the system's caches are dropped before each run
    bool slow = false;  // only with --all
    std::vector<Bar> bars;
};

[[nodiscard]] const std::vector<Benchmark>& AllBenchmarks();

}  // namespace quorbit::bench
