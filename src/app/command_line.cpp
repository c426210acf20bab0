// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/command_line.h"

#include <algorithm>
#include <optional>

#include "engine/run_context.h"

namespace quorbit {
namespace {

std::string UpperCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return text;
}

// Returns the run mode bits of the switches in an argument. Each is searched as a plain substring.
std::uint32_t SwitchesIn(const std::string& word)
{
    const std::string upper = UpperCase(word);
    std::uint32_t mode = 0;
    if (upper.find("/VS") != std::string::npos) {
        mode |= kRunAndQuit;
    }
    if (upper.find("/VO") != std::string::npos) {
        mode |= kRunAndStayOpen;
    }
    if (upper.find("/I") != std::string::npos) {
        mode |= kRunInvisible;
    }
    return mode;
}

std::optional<CommandAction> ActionOf(const std::string& option)
{
    if (option == "--help") {
        return CommandAction::Help;
    }
    if (option == "--version") {
        return CommandAction::Version;
    }
    if (option == "--setup") {
        return CommandAction::Setup;
    }
    if (option == "--show") {
        return CommandAction::Show;
    }
    return std::nullopt;
}

void TakeOption(CommandLine& line, const std::string& option)
{
    if (option == "--summary") {
        line.summary = true;
    } else if (const auto action = ActionOf(option)) {
        line.action = *action;
    } else {
        line.action = CommandAction::Wrong;
        line.error = "unknown option " + option;
    }
}

void TakeFile(CommandLine& line, const std::string& file)
{
    if (!line.named) {
        line.batchFile = file;
    }
    line.named = true;
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments,
                             const std::function<bool(const std::string&)>& fileExists)
{
    CommandLine line;
    for (const std::string& argument : arguments) {
        if (line.action == CommandAction::Wrong) {
            break;
        }
        if (argument.empty()) {
            continue;
        }
        const bool file = UpperCase(argument).ends_with(".QRB") || fileExists(argument);
        if (file) {
            TakeFile(line, argument);
        } else if (argument.starts_with("--")) {
            TakeOption(line, argument);
        } else {
            line.nRunMode |= SwitchesIn(argument);
            if (argument.front() != '/' && argument.front() != '-') {
                TakeFile(line, argument);
            }
        }
    }
    if (line.action == CommandAction::Show && !line.named) {
        line.action = CommandAction::Wrong;
        line.error = "--show needs the name of a batch file";
    }
    return line;
}

std::string UsageText()
{
    return "Usage: quorbit [FILE.qrb] [/I | /VS | /VO]\n"
           "Runs a batch file of file operations.\n"
           "\n"
           "  /I            run FILE without a window and quit\n"
           "  /VS           run FILE in a window and quit\n"
           "  /VO           run FILE in a window that stays open\n"
           "  --summary     with /I: print the closing counts also when there is no terminal\n"
           "  --show FILE   print the entries of a batch file and quit\n"
           "  --setup       complete the first start without a window and quit\n"
           "  --help        print this text and quit\n"
           "  --version     print the version and quit\n"
           "\n"
           "Exit code: 0 the run met no error, 1 it met errors, 2 there was no run (no such file, "
           "a damaged\n"
           "file, another run of the same document, no display for a window, wrong words on the "
           "command line).\n";
}

}  // namespace quorbit
