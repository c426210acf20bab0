// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Creates the numbered versions of incremental backups. Worker thread only.

#pragma once

#include <string>

#include "platform/file_system.h"

namespace quorbit {

enum class Rotation {
    NoneFree,  // all numbers are in use
    Linked,    // the file has both its numbered and its plain name
    Renamed,   // the file has only its numbered name
    Failed,    // a number was free, but neither link nor rename succeeded
};
// Gives a file the lowest free number from 1 to 198, inserted before the first dot of its name:
// report.doc becomes report1.doc. A name without a dot gets the number in front.
[[nodiscard]] Rotation RotateBackup(FileSystem& files, const Folder& folder,
                                    const std::string& name);
// Returns the name with the number inserted.
[[nodiscard]] std::string NumberedName(const std::string& name, int number);

}  // namespace quorbit
