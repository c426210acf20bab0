// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The texts, keys and icons of the commands: one table for menus, toolbar, shortcuts and status
// bar.

#pragma once

#include <span>
#include <string_view>

#include "document/command_target.h"

namespace quorbit {

struct Command {
    int nId;
    std::string_view text;   // menu item with '&' before its mnemonic, without the key
    std::string_view label;  // toolbar button; empty if it has none
    // The key as the menu shows it, and the actual shortcut. Both are empty if there is none.
    std::string_view keyName;
    std::string_view key;
    std::string_view icon;  // freedesktop icon name; also the name of the built-in icon
    std::string_view help;  // one line for the status bar
};

// Returns all commands that the user can choose, each once.
[[nodiscard]] std::span<const Command> CommandTable();
// Returns the row of a command, or null if the user cannot choose it directly.
[[nodiscard]] const Command* FindCommand(int nId);

}  // namespace quorbit
