// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Parses the command line. Pure functions. Any thread.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorbit {

// Shown if there are switches on the first start, which ignores them.
inline constexpr const char* kNoSwitchesOnFirstRun =
    "Command line options don't work if you are running for the first time.  Just run again and "
    "they will work.";

enum class CommandAction {
    Start,    // open the program, or run the batch file if there is a run mode
    Help,     // --help, -h
    Version,  // --version, -v
    Setup,    // --setup
    Show,     // --show FILE
    Wrong,    // invalid command line, see error
};

struct CommandLine {
    CommandAction action = CommandAction::Start;
    std::uint32_t nRunMode = 0;  // kRunAndQuit, kRunAndStayOpen, kRunInvisible
    bool named = false;          // a batch file is given
    std::string batchFile;       // as typed, not empty if named
    bool summary = false;        // --summary: print the totals even without a terminal
    std::string error;           // the reason for Wrong
};

// arguments: without the program name. "/VS", "/VO" and "/I" are switches, in any case and at any
// position. Any other argument is the batch file, even if it begins with a slash, unless it begins
// with a dash: that is an option, or wrong if there is no such option. Also wrong are a second
// file, an empty file name, /I without a file, --summary without /I, and an option that prints
// together with anything that it does not use. Nothing is ignored: an unattended caller must not
// take a misspelt command line for a run.
[[nodiscard]] CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

// Returns the text for --help.
[[nodiscard]] std::string UsageText();

}  // namespace quorbit
