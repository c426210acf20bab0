// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The terminal at standard output. Any thread.

#pragma once

namespace quorbit {

[[nodiscard]] bool IsTerminal();

// Columns; 80 if the terminal does not report them. 0 if standard output is not a terminal, or TERM
// names none that can erase a line (unset or "dumb").
[[nodiscard]] int TerminalWidth();

}  // namespace quorbit
