// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a walk is told about the entry that it works for.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "batch/dir_copy.h"
#include "engine/selection.h"
#include "engine/target_folder.h"
#include "platform/find_data.h"

namespace quorbit {

struct WalkRules {
    const std::vector<std::string>& list;  // masks or names
    std::uint32_t dwFlags = 0;             // the entry's flag word
    std::uint32_t nMask = 0;               // its attribute mask
    std::uint32_t nKind = DCK_TYPES;       // the effective kind
    std::vector<TargetFolder*>
        avoid;  // destinations: where they lie inside the source they are not walked into

    [[nodiscard]] bool Has(std::uint32_t flag) const { return (dwFlags & flag) != 0; }
    [[nodiscard]] bool SelectsName(const std::string& name) const
    {
        return Has(DCF_ALL_TYPES) || MatchFileType(list, name, nKind, dwFlags);
    }
    [[nodiscard]] bool Avoids(const Folder& folder) const
    {
        for (TargetFolder* target : avoid) {
            if (target->Is(folder.Identity())) {
                return true;
            }
        }
        return false;
    }
};

// The kind of an entry for matching: masks as soon as it has folder types.
[[nodiscard]] inline std::uint32_t EffectiveKind(const CDirCopy& entry)
{
    return entry.m_listFolderTypes.empty() ? entry.m_nKind : static_cast<std::uint32_t>(DCK_TYPES);
}

}  // namespace quorbit
