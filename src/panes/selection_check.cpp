// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/selection_check.h"

#include <algorithm>

namespace quorbit {

std::vector<int> RowsToCheck(std::vector<int> selected, int row)
{
    if (row >= 0 && std::find(selected.begin(), selected.end(), row) == selected.end()) {
        selected.push_back(row);
    }
    return selected;
}

SelectionVerdict JudgeSelection(const std::vector<bool>& isFolder, SelectionKind before, bool ctrl)
{
    const bool first = isFolder.empty() || isFolder.front();
    const SelectionKind firstKind = first ? SelectionKind::Folders : SelectionKind::Files;
    if (std::find(isFolder.begin(), isFolder.end(), !first) == isFolder.end()) {
        return {true, false, firstKind};
    }
    if (before == SelectionKind::None) {
        return {false, false, firstKind};
    }
    if (ctrl) {
        return {false, true, SelectionKind::None};
    }
    return {false, false,
            before == SelectionKind::Files ? SelectionKind::Folders : SelectionKind::Files};
}

}  // namespace quorbit
