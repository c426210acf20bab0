// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The logic of the file type dialog, without its window: converts entries to the values of the
// controls and back, and defines how the boxes affect each other. A file type entry selects files
// by masks. Pure functions.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "batch/dir_copy.h"
#include "dialogs/entry_checks.h"
#include "document/entry_dialogs.h"

namespace quorbit {

struct FileTypeForm {
    bool bDelete = false;
    std::uint32_t flags = DCF_NO_ATTRS;  // working copy, edited by the attribute dialog
    std::string source;
    std::string dest;
    std::vector<std::string> masks;  // in the process list
    EntryChecks checks;
};

// Returns the form of a new entry; its destination is composed by ComposeDestination.
[[nodiscard]] FileTypeForm NewFileTypeForm(bool bDelete, std::string source,
                                           const std::string& dest);
[[nodiscard]] FileTypeForm EditFileTypeForm(bool bDelete, const CDirCopy& entry);

// Returns `dest` with the last component of `source` appended, separated as in `dest`. Returns
// `dest` unchanged if it is empty or `source` has fewer than two characters.
[[nodiscard]] std::string ComposeDestination(const std::string& source, const std::string& dest);

[[nodiscard]] EntryChecks ClickTypeBox(const EntryChecks& checks, EntryBox box, bool on);
[[nodiscard]] EntryChecks EnabledTypeBoxes(const EntryChecks& checks);
// Returns true if the lists, their buttons and the speed typing box are enabled.
[[nodiscard]] bool ListsEnabled(const EntryChecks& checks);

// Returns true if the form selects no files; OK then shows a warning. An empty list of exceptions
// selects every file.
[[nodiscard]] bool SelectsNothing(const FileTypeForm& form);

// Returns true if the form deletes every file of its source although the user asked for exceptions:
// none is listed, or "*.*", which cancels the others. OK then asks.
[[nodiscard]] bool DeletesEveryFile(const FileTypeForm& form);

[[nodiscard]] EntryValues ValuesOf(const FileTypeForm& form);

}  // namespace quorbit
