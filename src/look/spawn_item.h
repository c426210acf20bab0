// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// One entry of an owner-drawn menu.

#pragma once

#include <QString>

namespace quorbit {

// Kinds of entries that are not commands.
enum : int {
    SPAWN_SUBMENU = -2,    // opens a submenu
    SPAWN_SEPARATOR = -3,  // its text is "--"
    SPAWN_BAR = -4,        // an entry of the menu bar
};

struct SpawnItem {
    int nImage = -1;   // index of the picture, -1 if there is none, or a kind
    int nCommand = 0;  // command number, or a kind
    QString szText;    // with its '&' and, if there is a key, a tab and its name
};

}  // namespace quorbit
