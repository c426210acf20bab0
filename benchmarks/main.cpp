// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Measures Quorbit against cp, rsync, find and rm on trees that it makes.

#include <algorithm>

#include "benchmarks/contest.h"
#include "benchmarks/options.h"
#include "benchmarks/report.h"
#include "benchmarks/rows.h"
#include "benchmarks/workshop.h"

namespace {

using namespace quorbit::bench;

bool IsWanted(const Row& row, const Options& options)
{
    if (!options.rows.empty())
        return std::ranges::count(options.rows, row.name) != 0;
    return options.all || !row.slow;
}

void CheckNames(const Options& options)
{
    for (const std::string& name : options.rows) {
        if (std::ranges::count(AllRows(), name, &Row::name) == 0)
            GiveUp("there is no row " + name);
    }
}

}  // namespace

int main(int argc, char** argv)
{
    const Options options = ParseOptions(argc, argv);
    CheckNames(options);
    const Workshop workshop(options);
    Report report;
    report.PrintHead(options);
    for (const Row& row : AllRows()) {
        if (IsWanted(row, options))
            report.PrintRow(row, options.quick, MeasureRow(row, workshop));
    }
    report.PrintFoot();
    return 0;
}
