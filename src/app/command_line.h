// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the command line asks for.

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quorbit {

// What a person is told whose switches do not count.
inline constexpr const char* kNoSwitchesOnFirstRun =
    "Command line options don't work if you are running for the first time.  Just run again and "
    "they will work.";

enum class CommandAction {
    Start,    // open the program, or run the batch file if there is a run mode
    Help,     // --help
    Version,  // --version
    Setup,    // --setup
    Show,     // --show FILE
    Wrong,    // the words cannot be understood: see error
};

struct CommandLine {
    CommandAction action = CommandAction::Start;
    std::uint32_t nRunMode = 0;  // kRunAndQuit, kRunAndStayOpen, kRunInvisible
    bool named = false;          // a batch file was named
    std::string batchFile;       // as it was typed
    bool summary = false;        // --summary: closing counts also when there is no terminal
    std::string error;           // for Wrong
};

// arguments: without the program's name. A batch file is an argument that names an existing file or
// ends in ".qrb"; it is never a switch, although a path begins with a slash as well. In all others
// "/VS", "/VO" and "/I" are searched, in any case, at any place. Words that begin with a slash or a
// single dash and are no switch of ours are passed over.
[[nodiscard]] CommandLine ParseCommandLine(
    const std::vector<std::string>& arguments,
    const std::function<bool(const std::string&)>& fileExists);

// For --help.
[[nodiscard]] std::string UsageText();

}  // namespace quorbit
