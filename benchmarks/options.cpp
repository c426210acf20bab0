// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/options.h"

#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string_view>

namespace quorbit::bench {
namespace {

constexpr unsigned kMaxRounds = 1000;

[[noreturn]] void ShowUsage(const std::string& fault)
{
    std::cerr << "bench: " << fault << "\n"
              << "Usage: ./bench [--quick] [--all] [--runs N] [--dir FOLDER] [BENCHMARK...]\n";
    std::exit(2);
}

unsigned ParseRounds(std::string_view text)
{
    unsigned rounds = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), rounds);
    if (fault != std::errc() || end != text.data() + text.size() || rounds == 0 ||
        rounds > kMaxRounds)
        ShowUsage("--runs needs a number from 1 to " + std::to_string(kMaxRounds));
    return rounds;
}

}  // namespace

Options ParseOptions(int argc, char** argv)
{
    Options options;
    bool roundsGiven = false;
    for (int at = 1; at < argc; ++at) {
        const std::string_view name = argv[at];
        const auto value = [&]() -> std::string {
            if (at + 1 >= argc)
                ShowUsage(std::string(name) + " needs a value");
            return argv[++at];
        };
        if (name == "--quick") {
            options.quick = true;
        } else if (name == "--all") {
            options.all = true;
        } else if (name == "--dir") {
            options.folder = value();
        } else if (name == "--program") {
            options.program = value();
        } else if (name == "--counter") {
            options.counter = value();
        } else if (name == "--runs") {
            options.rounds = ParseRounds(value());
            roundsGiven = true;
        } else if (!name.starts_with("-")) {
            options.benchmarks.emplace_back(name);
        } else {
            ShowUsage("unknown option " + std::string(name));
        }
    }
    if (options.folder.empty() || options.program.empty() || options.counter.empty()) {
        ShowUsage("--dir, --program and --counter are needed; ./bench gives them");
    }
    if (options.quick && !roundsGiven)
        options.rounds = 3;
    options.folder = std::filesystem::absolute(options.folder).lexically_normal().string();
    return options;
}

}  // namespace quorbit::bench
