// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Ends the program after an unrecoverable error.

#pragma once

#include <string>

namespace quorbit {

class FatalHandler {
public:
    virtual ~FatalHandler() = default;
    // Shows the text in a message box, or prints it to standard error if there is no display, and
    // makes the process exit with code 0. It may return before the process ends, so the caller must
    // do nothing else and return. Any thread.
    virtual void FatalMessage(const std::string& text) = 0;
};

}  // namespace quorbit
