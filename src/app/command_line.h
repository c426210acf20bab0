// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Parses the command line. Pure functions. Any thread.

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quorbit {

// Shown if there are switches on the first start, which ignores them.
inline constexpr const char* kNoSwitchesOnFirstRun =
    "Command line options don't work if you are running for the first time.  Just run again and "
    "they will work.";

enum class CommandAction {
    Start,    // open the program, or run the batch file if there is a run mode
    Help,     // --help
    Version,  // --version
    Setup,    // --setup
    Show,     // --show FILE
    Wrong,    // invalid command line, see error
};

struct CommandLine {
    CommandAction action = CommandAction::Start;
    std::uint32_t nRunMode = 0;  // kRunAndQuit, kRunAndStayOpen, kRunInvisible
    bool named = false;          // a batch file is given
    std::string batchFile;       // as typed; the first one if several are given
    bool summary = false;        // --summary: print the totals even without a terminal
    std::string error;           // the reason for Wrong
};

// arguments: without the program name. An argument that ends in ".qrb" or names an existing file is
// a batch file and never a switch, even if it begins with a slash. In other arguments, "/VS", "/VO"
// and "/I" are switches in any case and at any position, except in options, which begin with "--".
// An argument that begins neither with a slash nor with a dash is a batch file as well. Unknown
// arguments that begin with a slash or a single dash are ignored.
[[nodiscard]] CommandLine ParseCommandLine(
    const std::vector<std::string>& arguments,
    const std::function<bool(const std::string&)>& fileExists);

// Returns the text for --help.
[[nodiscard]] std::string UsageText();

}  // namespace quorbit
