// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the columns of the list of files say, and how its rows are ordered.

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
    kFileColumns,  // how many there are
};

// As the column shows a size in bytes: every begun unit of 1024 bytes and one more where the last
// one is full, so that no file shows 0.
[[nodiscard]] std::uint64_t SizeInKb(std::uint64_t bytes);
[[nodiscard]] std::string SizeText(std::uint64_t kb);
// "R", "H", "S" and "A" of an attribute word (platform/find_data.h), in this order.
[[nodiscard]] std::string AttributeLetters(std::uint32_t word);
// Local time as "12/31/99 01:05 PM"; AM and PM in every language. Seconds since 1970 UTC.
[[nodiscard]] std::string TimeText(std::int64_t seconds);

[[nodiscard]] bool IsFolderRow(const ShellListItem& item);
// What a row says in a column, UTF-8. A file whose details could not be read says nothing of them.
[[nodiscard]] std::string CellText(const ShellListItem& item, int column);
// Whether the first row stands above the second when the list is sorted by the column: folders
// first, texts by their bytes, sizes and times by value.
[[nodiscard]] bool StandsAbove(const ShellListItem& first, const ShellListItem& second, int column);

}  // namespace quorbit
