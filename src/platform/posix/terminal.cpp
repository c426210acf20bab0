// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

namespace quorbit {

bool IsTerminal()
{
    return ::isatty(STDOUT_FILENO) != 0;
}

int TerminalWidth()
{
    constexpr int kUsualWidth = 80;
    const char* const type = std::getenv("TERM");
    const bool dumb = type == nullptr || *type == '\0' || std::strcmp(type, "dumb") == 0;
    if (dumb || !IsTerminal()) {
        return 0;
    }
    winsize size{};
    const bool known = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : kUsualWidth;
}

}  // namespace quorbit
