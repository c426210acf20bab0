// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Column texts and sort order of the file list.

#pragma once

#include <cstdint>
#include <string>

#include "platform/shell/shell_list_item.h"

namespace quorbit {

enum FileColumn : int {
    kFileName,
    kFileSize,
    kFileType,
    kFileModified,
    kFileAttributes,
    kFileColumns,  // number of columns
};

// Converts a size in bytes to the KB of the size column: bytes / 1024 rounded down, plus 1. No file
// shows 0; an exact multiple of 1024 shows one more than its size.
[[nodiscard]] std::uint64_t SizeInKb(std::uint64_t bytes);
[[nodiscard]] std::string SizeText(std::uint64_t kb);
// Returns the letters R, H, S and A, in this order, of the attributes set in `word`
// (platform/find_data.h).
[[nodiscard]] std::string AttributeLetters(std::uint32_t word);
// Formats seconds since 1970-01-01 UTC as local time, "12/31/99 01:05 PM". AM and PM are not
// translated. Returns an empty string if the time cannot be converted.
[[nodiscard]] std::string TimeText(std::int64_t seconds);

[[nodiscard]] bool IsFolderRow(const ShellListItem& item);
// Returns the text of a cell, UTF-8. Columns of a file whose details could not be read are empty.
[[nodiscard]] std::string CellText(const ShellListItem& item, int column);
// Returns true if the first row sorts above the second by the column: folders first, texts in byte
// order, sizes and times by value.
[[nodiscard]] bool StandsAbove(const ShellListItem& first, const ShellListItem& second, int column);

}  // namespace quorbit
