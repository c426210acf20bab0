// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/drive_tree_filter.h"

#include "platform/shell/shell_constants.h"

namespace quorbit {

TreeVerdict DriveTreeVerdict(const TreeCandidate& item)
{
    const auto has = [&](std::uint32_t bits) { return (item.attributes & bits) != 0; };
    if (!has(SFGAO_FOLDER | SFGAO_FILESYSTEM | SFGAO_HASSUBFOLDER)) {
        return TreeVerdict::Count;
    }
    if (!has(SFGAO_FILESYSANCESTOR | SFGAO_FILESYSTEM)) {
        return TreeVerdict::Skip;
    }
    if (item.topLevel || !has(SFGAO_FILESYSANCESTOR)) {
        const bool otherPlace = item.topLevel && !has(SFGAO_FILESYSTEM) && item.considered > 0 &&
                                item.name != "Network Neighborhood";
        if (otherPlace || item.name == "Control Panel") {
            return TreeVerdict::Skip;
        }
    }
    return has(SFGAO_FOLDER) ? TreeVerdict::Make : TreeVerdict::Count;
}

}  // namespace quorbit
