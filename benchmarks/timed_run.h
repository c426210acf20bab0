// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs programs and measures their time and memory (wait4(2)).

#pragma once

#include <map>
#include <string>
#include <vector>

namespace quorbit::bench {

struct Command {
    std::vector<std::string> arguments;              // arguments[0] is searched in PATH
    std::map<std::string, std::string> environment;  // added to that of this process
};

struct Timing {
    double seconds = 0;     // elapsed time from the first start to the last end
    double cpuSeconds = 0;  // user and system time of all commands
    double peakMiB = 0;     // largest resident set of any command
};

// Runs the commands one after the other, with standard input and output on /dev/null. Gives up if
// one of them fails. Sets their environment variables in this process, which keeps them: one thread
// at a time.
[[nodiscard]] Timing RunTimed(const std::vector<Command>& commands);

// Prints the reason to standard error and exits, because later results would be unreliable.
[[noreturn]] void GiveUp(const std::string& why);

}  // namespace quorbit::bench
