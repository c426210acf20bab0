// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Functions on item id lists, and look-ups of names and icons, for trees and lists of the shell
// namespace. Stateless, so it can be a second base class of a pane. Accesses no disk. On failure,
// returns an empty result. Any thread.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/shell/item_id_list.h"
#include "platform/shell/item_type.h"
#include "platform/shell/shell_folder.h"
#include "platform/shell/shell_tree_item.h"

namespace quorbit {

class CShellPidl {
public:
    // Returns the view after its first id, or the view itself if it has none.
    [[nodiscard]] static ItemIdView GetNextItemId(ItemIdView id);
    // Returns the size in bytes of all ids and the terminator; 0 for a null list.
    [[nodiscard]] static std::size_t GetIdListSize(ItemIdView list);
    // Returns a list of `size` zero bytes.
    [[nodiscard]] static ItemIdList CreateIdList(std::size_t size);
    // Returns a list of the ids of the first list, then those of the second. Either may be null.
    [[nodiscard]] static ItemIdList ConcatIdLists(ItemIdView first, ItemIdView second);
    // Returns the first id and a terminator.
    [[nodiscard]] static ItemIdList CopySingleItemId(ItemIdView id);

    // flags: SHGDN_. The name is never truncated, since a truncated name could be that of another
    // item.
    [[nodiscard]] static std::optional<std::string> GetItemName(const ShellFolder& folder,
                                                                ItemIdView id, std::uint32_t flags);
    // Converts the item's parsing name, so the list is the canonical one, regardless of the folders
    // through which the item was reached. If the folder's own list is available, ConcatIdLists is
    // cheaper.
    [[nodiscard]] static std::optional<ItemIdList> GetAbsoluteIdList(const ShellFolder& desktop,
                                                                     const ShellFolder& folder,
                                                                     ItemIdView id);
    // Returns the path of an item with SFGAO_FILESYSTEM, as bytes, without trailing separator
    // except for a root ("/", "C:\").
    [[nodiscard]] static std::optional<std::string> GetPathOf(const ShellFolder& folder,
                                                              ItemIdView id);
    [[nodiscard]] static std::optional<std::string> GetPathFromIdList(const ShellFolder& desktop,
                                                                      ItemIdView list);

    // Returns the icon of the last item of a list, which may be a single id. open: for a selected
    // tree node.
    [[nodiscard]] static ItemIcon GetItemIcon(ItemIdView list, bool open);

    // Returns true if two items, possibly of different folders, have the same parsing name.
    [[nodiscard]] static bool IsSameItem(const ShellFolder& firstFolder, ItemIdView first,
                                         const ShellFolder& secondFolder, ItemIdView second);
};

// Compares two nodes of the same parent. Returns 0 if they cannot be compared.
[[nodiscard]] int CompareItemIds(const ShellTreeItem& first, const ShellTreeItem& second);

}  // namespace quorbit
