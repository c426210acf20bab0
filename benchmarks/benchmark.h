// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The list of the benchmarks.

#pragma once

#include <string>
#include <vector>

#include "benchmarks/test_tree.h"

namespace quorbit::bench {

enum class Work {
    FreshCopy,      // copy the tree into a new folder
    UnchangedSync,  // sync without changes
    Count,          // the count pass only
    DeleteFiles,    // an entry that deletes all files
    DeleteFolder,   // an entry that deletes the whole folder
    Window,         // a fresh copy in the dialog, compared with an unattended one
    Memory,         // the peak memory of a fresh copy
    // With one side at a distance of one millisecond a call:
    DistantCopy,     // a fresh copy to it
    DistantReplace,  // a sync to it that replaces every file
    DistantBackup,   // a numbered backup to it of files that all changed
    DistantSync,     // a sync to it without changes
    DistantSource,   // a fresh copy from it
};

// The program to compare with, and the largest acceptable ratio of Quorbit's figure to its figure.
struct Bar {
    std::string peer;
    double ratio = 0;
};

struct Benchmark {
    std::string name;
    std::string what;
    Work work = Work::FreshCopy;
    std::string tree;  // name; benchmarks with the same name share the tree
    TreeShape shape;
    TreeShape quickShape;
    bool cold = false;  // drop the system's caches before each run
    bool slow = false;  // run only with --all or by name
    std::vector<Bar> bars;
};

[[nodiscard]] const std::vector<Benchmark>& AllBenchmarks();

}  // namespace quorbit::bench
