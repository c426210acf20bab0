// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A row of the entry list and its texts.

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
    kEntryColumns,  // number of columns
};

// The texts are complete; CellText shortens them.
struct EntryRow {
    std::string strSource;
    std::string strDest;
    std::string strItems;
    std::string strFolderTypes;
    std::uint32_t dwFlags = 0;
    std::uint32_t nKind = DCK_TYPES;
    std::uint32_t nId = 0;  // number of the entry
    bool operator==(const EntryRow&) const = default;
};

// Separates names with ", " and joins masks without a separator.
[[nodiscard]] EntryRow MakeEntryRow(const CDirCopy& entry);
// Shortens a text of more than 1000 UTF-16 code units to 1000 and "...". Does not split surrogate
// pairs.
[[nodiscard]] QString CutForList(const QString& text);
// Returns the display text of a cell; all columns except the source are shortened. A delete entry
// shows no destination: none is used.
[[nodiscard]] QString CellText(const EntryRow& row, int column);

}  // namespace quorbit
