// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The dialog of the entries that select files by masks, without its window: what opening makes of
// an entry, how the boxes act on each other, and what OK makes of the controls. Pure functions.

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
    std::uint32_t flags = DCF_NO_ATTRS;  // working copy; the attribute dialog rewrites it
    std::string source;
    std::string dest;
    std::vector<std::string> masks;  // of the process list
    EntryChecks checks;
};

// For a new entry; the destination is composed of both folders.
[[nodiscard]] FileTypeForm NewFileTypeForm(bool bDelete, std::string source,
                                           const std::string& dest);
[[nodiscard]] FileTypeForm EditFileTypeForm(bool bDelete, const CDirCopy& entry);

// The destination with the last component of the source below it; with the separators of the
// destination. Empty if the destination is.
[[nodiscard]] std::string ComposeDestination(const std::string& source, const std::string& dest);

[[nodiscard]] EntryChecks ClickTypeBox(const EntryChecks& checks, EntryBox box, bool on);
[[nodiscard]] EntryChecks EnabledTypeBoxes(const EntryChecks& checks);
// Whether lists, their buttons and the speed typing box can be used.
[[nodiscard]] bool ListsEnabled(const EntryChecks& checks);

// Whether OK warns that nothing is selected.
[[nodiscard]] bool SelectsNothing(const FileTypeForm& form);

[[nodiscard]] EntryValues ValuesOf(const FileTypeForm& form);

}  // namespace quorbit
