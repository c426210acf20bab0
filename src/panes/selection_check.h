// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Checks that a selection in the file list is all files or all folders, because an entry names only
// one kind. Pure functions.

#pragma once

#include <vector>

namespace quorbit {

enum class SelectionKind : int {
    None = 0,  // not yet known
    Files = 1,
    Folders = 2,
};

struct SelectionVerdict {
    bool uniform = true;                       // all of one kind
    bool warn = false;                         // warn the user and clear the selection
    SelectionKind kind = SelectionKind::None;  // the kind to remember
    bool operator==(const SelectionVerdict&) const = default;
};

// Returns the selected rows, in row order, followed by `row`, the row that a click is about to add
// (-1: none), unless it is selected already.
[[nodiscard]] std::vector<int> RowsToCheck(std::vector<int> selected, int row);

// isFolder contains one value per row; no rows count as folders. `before` is the kind of the last
// verdict. `ctrl` is true if Ctrl is pressed, so that a click adds to the selection instead of
// replacing it.
[[nodiscard]] SelectionVerdict JudgeSelection(const std::vector<bool>& isFolder,
                                              SelectionKind before, bool ctrl);

}  // namespace quorbit
