// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/selection_check.h"

#include <gtest/gtest.h>

namespace quorbit {
namespace {

using enum SelectionKind;

TEST(SelectionCheck, TheRowOfTheClickCountsOnce)
{
    struct Case {
        std::vector<int> selected;
        int row;
        std::vector<int> checked;
    };
    for (const Case& c : {Case{{}, -1, {}}, Case{{}, 4, {4}}, Case{{1, 2}, -1, {1, 2}},
                          Case{{1, 2}, 2, {1, 2}}, Case{{3, 5}, 1, {3, 5, 1}}}) {
        EXPECT_EQ(RowsToCheck(c.selected, c.row), c.checked);
    }
}

TEST(SelectionCheck, WarnsOnlyWhereTheCtrlKeyWouldMixKinds)
{
    const bool F = true;  // a folder
    const bool f = false;
    struct Case {
        std::vector<bool> rows;
        SelectionKind before;
        bool ctrl;
        SelectionVerdict verdict;
    };
    const Case cases[] = {
        {{}, None, false, {true, false, Folders}},
        {{f}, None, false, {true, false, Files}},
        {{F, F, F}, Files, true, {true, false, Folders}},
        {{f, f}, Folders, true, {true, false, Files}},
        // No kind is known yet, so the first row decides.
        {{f, F}, None, false, {false, false, Files}},
        {{F, f}, None, true, {false, false, Folders}},
        // The click replaces the selection.
        {{f, f, F}, Files, false, {false, false, Folders}},
        {{F, f}, Folders, false, {false, false, Files}},
        // The click would add to it.
        {{f, f, F}, Files, true, {false, true, None}},
        {{F, f}, Folders, true, {false, true, None}},
        // Long selections.
        {std::vector<bool>(2000, true), Files, true, {true, false, Folders}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(JudgeSelection(c.rows, c.before, c.ctrl), c.verdict) << "case " << &c - cases;
    }
    std::vector<bool> late(3000, false);
    late.back() = true;
    EXPECT_TRUE(JudgeSelection(late, Files, true).warn);
}

}  // namespace
}  // namespace quorbit
