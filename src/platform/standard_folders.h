// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Where the program keeps what it remembers, by the XDG Base Directory Specification 0.8. Paths are
// absolute, without closing separator, and are read from the environment at each call. They are
// bytes: a home folder need not be UTF-8.

#pragma once

#include <string>
#include <vector>

#include "platform/error.h"

namespace quorbit {

// Settings: $XDG_CONFIG_HOME/quorbit, else ~/.config/quorbit. This and the next are empty if the
// user has no home folder at all.
[[nodiscard]] std::string ConfigFolder();
// Logs of runs: $XDG_STATE_HOME/quorbit, else ~/.local/state/quorbit.
[[nodiscard]] std::string StateFolder();
// Full path of an installed file that the program comes with, e.g. "help/index.html"; empty if it
// is nowhere. Looked for in $XDG_DATA_HOME/quorbit (else ~/.local/share/quorbit), then in quorbit
// in each of $XDG_DATA_DIRS (else /usr/local/share and /usr/share).
[[nodiscard]] std::string FindDataFile(const std::string& name);

// What all programs of the user share, desktop entries and file types among it: $XDG_DATA_HOME,
// else
// ~/.local/share. Empty if the user has no home folder at all.
[[nodiscard]] std::string SharedDataFolder();
// The same of the system, the more important one first: $XDG_DATA_DIRS, else /usr/local/share and
// /usr/share.
[[nodiscard]] std::vector<std::string> SystemDataFolders();

// Creates a folder and those above it that are missing, for the user alone (0700) as the
// standard asks. One that is there stays as it is.
Status CreateFolders(const std::string& path);

}  // namespace quorbit
