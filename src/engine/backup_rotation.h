// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The numbered versions of an incremental backup. Worker thread only.

#pragma once

#include <string>

#include "platform/file_system.h"

namespace quorbit {

enum class Rotation {
    NoneFree,  // all numbers are taken
    Linked,    // the file has its number and still its name
    Renamed,   // the file has its number only
    Failed,    // a number was free, but the file could not be given it
};
// Gives a file of the folder the lowest free number between stem and suffix: report.doc becomes
// report1.doc. The name is split at its first dot; a name without a dot is all suffix. Numbers go
// from 1 to 198.
[[nodiscard]] Rotation RotateBackup(FileSystem& files, const Folder& folder,
                                    const std::string& name);
// The name with a number in it.
[[nodiscard]] std::string NumberedName(const std::string& name, int number);

}  // namespace quorbit
