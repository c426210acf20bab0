// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/command_line.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "engine/run_context.h"

namespace quorbit {
namespace {

struct Switch {
    std::string_view name;  // upper case
    std::uint32_t mode;
};
constexpr std::array kSwitches{Switch{"/VS", kRunAndQuit}, Switch{"/VO", kRunAndStayOpen},
                               Switch{"/I", kRunInvisible}};

struct Option {
    std::string_view name;
    CommandAction action;
};
constexpr std::array kOptions{
    Option{"--help", CommandAction::Help},       Option{"-h", CommandAction::Help},
    Option{"--version", CommandAction::Version}, Option{"-v", CommandAction::Version},
    Option{"--setup", CommandAction::Setup},     Option{"--show", CommandAction::Show}};

std::string UpperCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return text;
}

// Returns the run mode bit of a switch; 0 if the argument is none.
std::uint32_t ModeOf(const std::string& argument)
{
    const auto found = std::ranges::find(kSwitches, UpperCase(argument), &Switch::name);
    return found == kSwitches.end() ? 0 : found->mode;
}

void Refuse(CommandLine& line, std::string reason)
{
    line.action = CommandAction::Wrong;
    line.error = std::move(reason);
}

void TakeOption(CommandLine& line, const std::string& argument)
{
    const auto option = std::ranges::find(kOptions, argument, &Option::name);
    if (argument == "--summary") {
        line.summary = true;
    } else if (option == kOptions.end()) {
        Refuse(line, "unknown option " + argument + " (write ./" + argument +
                         " if it is the name of a file)");
    } else if (line.action != CommandAction::Start && line.action != option->action) {
        Refuse(line, "options that exclude each other");
    } else {
        line.action = option->action;
    }
}

void TakeFile(CommandLine& line, const std::string& file)
{
    if (file.empty()) {
        Refuse(line, "the name of the batch file is empty");
    } else if (line.named) {
        Refuse(line, "more than one batch file: " + line.batchFile + " and " + file);
    } else {
        line.named = true;
        line.batchFile = file;
    }
}

// Checks that the arguments, each of which is valid, make sense together.
void CheckTogether(CommandLine& line)
{
    const bool runs = line.nRunMode != 0 || line.summary;
    const bool show = line.action == CommandAction::Show;
    switch (line.action) {
        case CommandAction::Start:
            if ((line.nRunMode & kRunInvisible) != 0 && !line.named) {
                Refuse(line, "/I needs the name of a batch file");
            } else if (line.summary && (line.nRunMode & kRunInvisible) == 0) {
                Refuse(line, "--summary is only valid with /I");
            }
            break;
        case CommandAction::Help:
        case CommandAction::Version:
        case CommandAction::Setup:
        case CommandAction::Show:
            if (show && !line.named) {
                Refuse(line, "--show needs the name of a batch file");
            } else if (runs || (line.named && !show)) {
                Refuse(line, "an option that excludes the other arguments");
            }
            break;
        case CommandAction::Wrong:
            break;
    }
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    for (const std::string& argument : arguments) {
        if (const std::uint32_t mode = ModeOf(argument)) {
            line.nRunMode |= mode;
        } else if (argument.starts_with('-')) {
            TakeOption(line, argument);
        } else {
            TakeFile(line, argument);
        }
        if (line.action == CommandAction::Wrong) {
            return line;
        }
    }
    CheckTogether(line);
    return line;
}

std::string UsageText()
{
    return "Usage: quorbit [FILE.qrb] [/I | /VS | /VO]\n"
           "Runs a batch file of file operations.\n"
           "\n"
           "  /I             run FILE without a window and quit\n"
           "  /VS            run FILE in a window and quit\n"
           "  /VO            run FILE in a window that stays open\n"
           "  --summary      with /I: print the totals even without a terminal\n"
           "  --show FILE    print the entries of a batch file and quit\n"
           "  --setup        complete the first start without a window and quit\n"
           "  -h, --help     print this text and quit\n"
           "  -v, --version  print the version and quit\n"
           "\n"
           "Exit code:\n"
           "  0  the run was complete and had no errors\n"
           "  1  the run had errors, was stopped by a signal, or its log or output is incomplete\n"
           "  2  nothing was run: no batch file, one that is missing, damaged or empty, another\n"
           "     run with the same log, no log, unusable settings, the first start is not\n"
           "     complete, no display for a window, or an invalid command line\n";
}

}  // namespace quorbit
