// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs programs and measures them as the system accounts for them (wait4(2)).

#pragma once

#include <map>
#include <string>
#include <vector>

namespace quorbit::bench {

struct Command {
    std::vector<std::string> arguments;              // arguments[0] is looked up on the search path
    std::map<std::string, std::string> environment;  // on top of ours
};

struct Timing {
    double seconds = 0;     // on the wall clock, from the first start to the last end
    double cpuSeconds = 0;  // user and system, of all of them
    double peakMiB = 0;     // largest resident set of any of them
};

// Runs the commands one after the other. Ends the measurement with a message if one of them fails.
[[nodiscard]] Timing RunTimed(const std::vector<Command>& commands);

// Ends the measurement: what cannot be trusted is not printed.
[[noreturn]] void GiveUp(const std::string& why);

}  // namespace quorbit::bench
