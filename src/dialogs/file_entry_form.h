// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The dialog of the entries that name single files or folders, without its window: what opening
// makes of an entry, and what OK makes of the controls. Pure functions.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "batch/dir_copy.h"
#include "dialogs/entry_checks.h"
#include "document/entry_dialogs.h"

namespace quorbit {

struct FileEntryForm {
    bool bFiles = true;  // the names are those of files, else of folders
    bool bDelete = false;
    std::uint32_t flags = DCF_NO_ATTRS;  // working copy; the attribute dialog rewrites it
    std::string source;
    std::string dest;
    std::vector<std::string> names;        // of the process list
    std::vector<std::string> folderTypes;  // masks inside the folders
    EntryChecks checks;
};

// For a new entry. The names are taken as they are.
[[nodiscard]] FileEntryForm NewFileEntryForm(bool bFiles, bool bDelete, std::string source,
                                             std::string dest, std::vector<std::string> names);

// For an entry that is edited. One with masks for its folders is a folder entry, whatever bFiles
// says.
[[nodiscard]] FileEntryForm EditFileEntryForm(bool bFiles, bool bDelete, const CDirCopy& entry);

// The names in the text of a drop: the letter F, then names with ", " between them. A name that
// holds a comma is cut there. Another text than a list of names gives none.
[[nodiscard]] std::vector<std::string> NamesOfDropText(const std::string& text);

[[nodiscard]] const char* TitleOf(const FileEntryForm& form);

// Whether OK puts "*.*" in the place of masks that nobody set.
[[nodiscard]] bool TakesEveryType(const FileEntryForm& form);

[[nodiscard]] EntryValues ValuesOf(const FileEntryForm& form);

// A text that is a mask and no name.
[[nodiscard]] bool IsMaskText(const std::string& text);

}  // namespace quorbit
