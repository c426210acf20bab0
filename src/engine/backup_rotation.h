// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Creates the numbered versions of incremental backups. Worker thread only.

#pragma once

#include <string>

#include "platform/file_system.h"

namespace quorbit {

struct Rotation {
    enum class Outcome {
        NoneFree,  // all numbers are in use; the file has only its plain name
        Linked,    // the file has both its numbered and its plain name
        Renamed,   // the file has only its numbered name
    };
    Outcome outcome = Outcome::NoneFree;
    std::string numbered;  // the numbered name; empty for NoneFree
};
// Gives a file the lowest free number from 1 to 198, inserted before the first dot of its name:
// report.doc becomes report1.doc. A name without a dot gets the number in front. A number is not
// free if its name exists in the destination folder or in the source folder, because the source
// file would otherwise never be backed up. On an error the file keeps its plain name: neither link
// nor rename succeeded, the numbered name is too long, or no number is surely free although not all
// are in use.
[[nodiscard]] Result<Rotation> RotateBackup(FileSystem& files, const Folder& folder,
                                            const std::string& name, const Folder& source);
// Takes the number back after a failed copy, so that the old version has only its plain name. old:
// the details of the plain name before the rotation. Keeps the number if the plain name is another
// file by now. On an error the old version may have both names or only its numbered name.
[[nodiscard]] Status TakeBackNumber(FileSystem& files, const Folder& folder, const FindData& old,
                                    const Rotation& rotation);
// Returns the name with the number inserted.
[[nodiscard]] std::string NumberedName(const std::string& name, int number);

}  // namespace quorbit
