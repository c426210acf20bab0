// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The program's messages on standard error.

#pragma once

#include <string>

namespace quorbit {

// Writes "quorbit: " and the text as one line. Control characters and bytes that are not UTF-8 are
// shown as escapes. Any thread.
void Complain(const std::string& text);

}  // namespace quorbit
