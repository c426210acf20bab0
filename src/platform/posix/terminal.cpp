// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace quorbit {

bool IsTerminal()
{
    return ::isatty(STDOUT_FILENO) != 0;
}

int TerminalWidth()
{
    constexpr int kUsualWidth = 80;
    if (!IsTerminal()) {
        return 0;
    }
    winsize size{};
    const bool known = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : kUsualWidth;
}

}  // namespace quorbit
