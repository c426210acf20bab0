// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Whether a selection in the list of files is all files or all folders: an entry names one or the
// other.

#pragma once

#include <vector>

namespace quorbit {

enum class SelectionKind : int {
    None = 0,  // not known yet
    Files = 1,
    Folders = 2,
};

struct SelectionVerdict {
    bool uniform = true;                       // one kind throughout
    bool warn = false;                         // tell the person, and drop the selection
    SelectionKind kind = SelectionKind::None;  // from now on
    bool operator==(const SelectionVerdict&) const = default;
};

// The selected rows in row order, with the row that a click is about to add behind them; -1 if
// there is none.
[[nodiscard]] std::vector<int> RowsToCheck(std::vector<int> selected, int row);

// isFolder: each row in turn. No rows count as folders. before: what the last verdict said.
// ctrl: the key is held, so that a click adds to the selection and does not replace it.
[[nodiscard]] SelectionVerdict JudgeSelection(const std::vector<bool>& isFolder,
                                              SelectionKind before, bool ctrl);

}  // namespace quorbit
