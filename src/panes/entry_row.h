// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A row of the list of entries: what it shows of an entry.

#pragma once

#include <QString>
#include <cstdint>
#include <string>

#include "batch/dir_copy.h"

namespace quorbit {

enum EntryColumn : int {
    kEntrySource,
    kEntryDest,
    kEntryItems,
    kEntryFolderTypes,
    kEntryColumns,  // how many there are
};

// Texts are whole.
struct EntryRow {
    std::string strSource;
    std::string strDest;
    std::string strItems;
    std::string strFolderTypes;
    std::uint32_t dwFlags = 0;
    std::uint32_t nKind = DCK_TYPES;
    std::uint32_t nId = 0;  // of the entry
    bool operator==(const EntryRow&) const = default;
};

// Names stand with ", " between them, masks with nothing.
[[nodiscard]] EntryRow MakeEntryRow(const CDirCopy& entry);
// The first 1000 characters and "..." of a longer text. A character that takes two code units is
// kept or dropped whole.
[[nodiscard]] QString CutForList(const QString& text);
// For the screen; every column but the source is cut.
[[nodiscard]] QString CellText(const EntryRow& row, int column);

}  // namespace quorbit
