// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// How commands look to a person: one table for menus, toolbar, keys and status bar.

#pragma once

#include <span>
#include <string_view>

#include "document/command_target.h"

namespace quorbit {

struct Command {
    int nId;
    std::string_view text;   // of the menu item, mnemonic marked by '&', without the key
    std::string_view label;  // of the toolbar button; empty if it has none
    // The key's name as the menu shows it, and what is pressed. Both empty if there is none.
    std::string_view keyName;
    std::string_view key;
    std::string_view icon;  // freedesktop icon name, also the name of our own picture
    std::string_view help;  // one line for the status bar
};

// All commands that a person can choose, each once.
[[nodiscard]] std::span<const Command> CommandTable();
// Null if a person cannot choose it by itself.
[[nodiscard]] const Command* FindCommand(int nId);

}  // namespace quorbit
