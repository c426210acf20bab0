// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Standard folders of the XDG Base Directory Specification 0.8. Paths are absolute, without
// trailing separator, and are read from the environment at each call. They are bytes, since a home
// folder need not be UTF-8. Any thread, as long as no other thread changes the environment.

#pragma once

#include <string>
#include <vector>

#include "platform/error.h"

namespace quorbit {

// The home folder of the user: $HOME if that is absolute, else that of the user database. Empty if
// there is none.
[[nodiscard]] std::string HomeFolder();
// Returns the first of HOME, XDG_CONFIG_HOME and XDG_STATE_HOME whose value is a relative path, as
// "HOME=value"; empty if there is none. The folders below ignore such a value, as XDG demands, so
// settings and logs would silently be elsewhere.
[[nodiscard]] std::string RelativeFolderVariable();
// Settings: $XDG_CONFIG_HOME/quorbit, or ~/.config/quorbit by default. Empty if the user has no
// home folder.
[[nodiscard]] std::string ConfigFolder();
// Logs of runs: $XDG_STATE_HOME/quorbit, or ~/.local/state/quorbit by default. Empty if the user
// has no home folder.
[[nodiscard]] std::string StateFolder();
// Returns the full path of an installed file, e.g. "help/index.html"; empty if there is none.
// Searches quorbit in $XDG_DATA_HOME (by default ~/.local/share), then in each of $XDG_DATA_DIRS
// (by default /usr/local/share and /usr/share).
[[nodiscard]] std::string FindDataFile(const std::string& name);

// Data shared by all programs of the user, such as desktop entries and file types: $XDG_DATA_HOME,
// or ~/.local/share by default. Empty if the user has no home folder.
[[nodiscard]] std::string SharedDataFolder();
// The same for the whole system, in order of preference: $XDG_DATA_DIRS, or /usr/local/share and
// /usr/share by default.
[[nodiscard]] std::vector<std::string> SystemDataFolders();

// Creates a folder and its missing parents with mode 0700, as that document requires. Existing
// folders are left unchanged. path must be absolute.
Status CreateFolders(const std::string& path);

}  // namespace quorbit
