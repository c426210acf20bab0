// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Whoever ends the program when it cannot go on.

#pragma once

#include <string>

namespace quorbit {

class FatalHandler {
public:
    virtual ~FatalHandler() = default;
    // Shows the text in a stop box (or where there is no screen, on standard error) and sees to it
    // that the process ends with exit code 0. It may end at once or later: whoever calls this does
    // nothing afterwards but return. May be called on any thread.
    virtual void FatalMessage(const std::string& text) = 0;
};

}  // namespace quorbit
