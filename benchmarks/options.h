// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The command line of the measurements.

#pragma once

#include <string>
#include <vector>

namespace quorbit::bench {

struct Options {
    bool quick = false;                   // a tenth of each tree
    bool all = false;                     // those that take long, too
    std::vector<std::string> benchmarks;  // names; empty for all that do not take long
    std::string folder;                   // where trees and copies lie
    std::string program;                  // the program under measurement
    std::string counter;                  // the count pass alone
    unsigned rounds = 5;
};

// Prints how it is called and ends the program if the arguments cannot be understood.
[[nodiscard]] Options ParseOptions(int argc, char** argv);

}  // namespace quorbit::bench
