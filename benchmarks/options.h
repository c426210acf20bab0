// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Parses the command line of the benchmarks.

#pragma once

#include <string>
#include <vector>

namespace quorbit::bench {

struct Options {
    bool quick = false;                   // smaller trees
    bool all = false;                     // include the slow benchmarks
    std::vector<std::string> benchmarks;  // names; empty for the default set
    std::string folder;                   // absolute path of the working folder
    std::string program;                  // path of Quorbit
    std::string counter;                  // path of bench_count
    unsigned rounds = 5;                  // 3 with --quick unless given
};

// Prints the usage and exits with code 2 if the arguments are invalid.
[[nodiscard]] Options ParseOptions(int argc, char** argv);

}  // namespace quorbit::bench
