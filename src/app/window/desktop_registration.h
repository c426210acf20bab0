// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Registers this program for ".qrb" files on the user's desktop, with a desktop entry and a MIME
// type (Desktop Entry Specification 1.5, Shared MIME-info Database; freedesktop.org). Errors are
// ignored, because the program works without the registration. One thread at a time.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/required.h"

namespace quorbit {

struct Registration {
    using StartProgram = std::function<void(const std::string&, const std::vector<std::string>&)>;

    std::string program;                     // full path
    std::string dataFolder;                  // user's shared data; empty: do not register
    std::vector<std::string> systemFolders;  // shared data of the system
    // Starts a program from the search path with arguments and does not wait for it.
    Required<StartProgram> startProgram;
};

// Writes the desktop entry if it is missing or starts another program, and the MIME type if it is
// missing, and then updates the desktop's caches. If the program is installed for all users,
// instead removes the files that it has written, unless they were changed, because they would hide
// the installed ones.
void RegisterWithDesktop(const Registration& registration);

// Quotes a path for the value of "Exec" (Desktop Entry Specification 1.5, "The Exec key").
[[nodiscard]] std::string ExecArgument(const std::string& path);

}  // namespace quorbit
