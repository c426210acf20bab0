// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The selection and traversal rules of one entry, as plain values. Any thread.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "batch/dir_copy.h"
#include "engine/selection.h"
#include "platform/find_data.h"

namespace quorbit {

struct WalkRules {
    std::vector<std::string> list;    // masks or names
    std::uint32_t dwFlags = 0;        // flags of the entry, DCF_... bits
    std::uint32_t nMask = 0;          // its attribute mask, DCF_ATTR_MASK bits
    std::uint32_t nKind = DCK_TYPES;  // of the list: DCK_TYPES or DCK_NAMES

    [[nodiscard]] bool Has(std::uint32_t flag) const { return (dwFlags & flag) != 0; }
    // True if selected files are deleted, false if they are transferred.
    [[nodiscard]] bool Deletes() const { return Has(DCF_DELETE); }
    // True if every file that the walk takes is copied: no later check can exclude it.
    [[nodiscard]] bool CopiesAll() const
    {
        return Has(DCF_NO_ATTRS) && !Has(DCF_DELETE | DCF_SYNC | DCF_INCREMENTAL);
    }
    // Returns true if a walk processes an item: a folder to enter, or a file that the list selects.
    // An item of unknown kind is processed as a file, so that its error is reported. What killed
    // runs left is skipped.
    [[nodiscard]] bool Takes(const FindData& item) const
    {
        if (item.leftover) {
            return false;
        }
        if (item.kind == ItemKind::Folder) {
            return Has(DCF_SUBFOLDERS);
        }
        return Has(DCF_ALL_TYPES) || MatchFileType(list, item.name, nKind, dwFlags);
    }
    // Returns true if the attribute filter accepts a file. With DCF_NO_ATTRS, `attributes` is not
    // used.
    [[nodiscard]] bool PassesFilter(std::uint32_t attributes) const
    {
        return MatchAttributes(attributes, dwFlags, nMask);
    }
};

}  // namespace quorbit
