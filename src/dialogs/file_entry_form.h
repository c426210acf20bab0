// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The logic of the file entry dialog, without its window: converts entries to the values of the
// controls and back. A file entry names individual files or folders. Pure functions.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "batch/dir_copy.h"
#include "dialogs/entry_checks.h"
#include "document/entry_dialogs.h"

namespace quorbit {

struct FileEntryForm {
    bool bFiles = true;  // the names are files, otherwise folders
    bool bDelete = false;
    std::uint32_t flags = DCF_NO_ATTRS;  // working copy, edited by the attribute dialog
    std::string source;
    std::string dest;
    std::vector<std::string> names;        // in the process list
    std::vector<std::string> folderTypes;  // masks for the files in the folders
    EntryChecks checks;
};

// Returns the form of a new entry. The names are used unchanged.
[[nodiscard]] FileEntryForm NewFileEntryForm(bool bFiles, bool bDelete, std::string source,
                                             std::string dest, std::vector<std::string> names);

// Returns the form of an existing entry. An entry with folder masks is a folder entry even if
// bFiles is true.
[[nodiscard]] FileEntryForm EditFileEntryForm(bool bFiles, bool bDelete, const CDirCopy& entry);

// Returns the names in the text of a drop: the letter F, then names separated by ", ". A name that
// contains a comma is split there. Returns no names for the text of a folder drop.
[[nodiscard]] std::vector<std::string> NamesOfDropText(const std::string& text);

[[nodiscard]] const char* TitleOf(const FileEntryForm& form);

// Returns true if OK uses "*.*" because no masks were set.
[[nodiscard]] bool TakesEveryType(const FileEntryForm& form);

// Returns true if the form deletes every file of its source or of its folders although it asks for
// exceptions: none is listed. OK then asks.
[[nodiscard]] bool DeletesEveryFile(const FileEntryForm& form);

[[nodiscard]] EntryValues ValuesOf(const FileEntryForm& form);

// Returns true if the text is a mask, not a name.
[[nodiscard]] bool IsMaskText(const std::string& text);

}  // namespace quorbit
