// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Entry point of the program. The only file that uses both the headless part and the windows.

#include <string>
#include <vector>

#include "app/program.h"
#include "app/window/window_program.h"

int main(int argc, char** argv)
{
    const char* const name = argc > 0 ? argv[0] : "quorbit";
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return quorbit::RunProgram(arguments, [name](const auto& line, const auto& onNoDisplay) {
        return quorbit::RunInWindow(line, name, onNoDisplay);
    });
}
