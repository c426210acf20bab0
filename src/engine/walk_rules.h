// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The selection and traversal rules of one entry, as plain values.

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
    std::uint32_t dwFlags = 0;        // the entry's flag word
    std::uint32_t nMask = 0;          // its attribute mask
    std::uint32_t nKind = DCK_TYPES;  // what the list holds: DCK_

    [[nodiscard]] bool Has(std::uint32_t flag) const { return (dwFlags & flag) != 0; }
    // Selected files are deleted; else they are transferred.
    [[nodiscard]] bool Deletes() const { return Has(DCF_DELETE); }
    // Whether a walk looks at a listed item: a folder that it goes down into, or a file that the
    // list selects. What is of no known kind counts as a file, and fails as one.
    [[nodiscard]] bool Takes(const FindData& item) const
    {
        if (item.kind == ItemKind::Folder) {
            return Has(DCF_SUBFOLDERS);
        }
        return !item.leftover &&
               (Has(DCF_ALL_TYPES) || MatchFileType(list, item.name, nKind, dwFlags));
    }
    // Whether the attribute filter lets a file through. It needs no attributes under DCF_NO_ATTRS.
    [[nodiscard]] bool PassesFilter(std::uint32_t attributes) const
    {
        return MatchAttributes(attributes, dwFlags, nMask);
    }
};

}  // namespace quorbit
