// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Makes ".qrb" open with this program on a user's desktop: a desktop entry and a MIME type. Nothing
// is reported: a program that cannot register itself still works.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/required.h"

namespace quorbit {

struct Registration {
    using StartProgram = std::function<void(const std::string&, const std::vector<std::string>&)>;

    std::string program;                     // full path
    std::string dataFolder;                  // the user's shared data; empty: no desktop
    std::vector<std::string> systemFolders;  // the system's shared data
    // Starts a program of the search path with arguments and does not wait for it.
    Required<StartProgram> startProgram;
};

// Writes desktop entry and MIME type if they are missing or start another program, and has the
// desktop's caches brought up to date. Where the program is installed for all users it only takes
// back what it wrote, and nobody changed, since that would hide the installed entry.
void RegisterWithDesktop(const Registration& registration);

// A path as the value of "Exec" takes it, by the Desktop Entry Specification 1.5.
[[nodiscard]] std::string ExecArgument(const std::string& path);

}  // namespace quorbit
