// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What trees and lists of the shell namespace do with its items: the arithmetic of item id lists,
// and look-ups of names and icons. Holds nothing and acts on its arguments alone; made to be a
// second base class of a pane. None of it touches a disk. Failures give nothing and say nothing.

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
    // What stands behind the first id of the view; the view itself if it has none.
    [[nodiscard]] static ItemIdView GetNextItemId(ItemIdView id);
    // Bytes of all ids and of the terminator; 0 for no list.
    [[nodiscard]] static std::size_t GetIdListSize(ItemIdView list);
    // That many zero bytes.
    [[nodiscard]] static ItemIdList CreateIdList(std::size_t size);
    // The ids of the first list, then those of the second. Either may be no list.
    [[nodiscard]] static ItemIdList ConcatIdLists(ItemIdView first, ItemIdView second);
    // The first id and a terminator.
    [[nodiscard]] static ItemIdList CopySingleItemId(ItemIdView id);

    // flags: SHGDN_. The name is whole, however long: one that is cut could be another item's.
    [[nodiscard]] static std::optional<std::string> GetItemName(const ShellFolder& folder,
                                                                ItemIdView id, std::uint32_t flags);
    // By way of the item's parsing name, so that the list leads there by the shortest way and not
    // by the one that was taken. Where the folder's own list is at hand, ConcatIdLists is cheaper.
    [[nodiscard]] static std::optional<ItemIdList> GetAbsoluteIdList(const ShellFolder& desktop,
                                                                     const ShellFolder& folder,
                                                                     ItemIdView id);
    // Path of an item with SFGAO_FILESYSTEM, as bytes, without closing separator unless it is a
    // root ("/", "C:\").
    [[nodiscard]] static std::optional<std::string> GetPathOf(const ShellFolder& folder,
                                                              ItemIdView id);
    [[nodiscard]] static std::optional<std::string> GetPathFromIdList(const ShellFolder& desktop,
                                                                      ItemIdView list);

    // Icon of the last item of a list, which may be a single id. open: as of a selected tree node.
    [[nodiscard]] static ItemIcon GetItemIcon(ItemIdView list, bool open);

    // Whether two items are the same one, though they may come from two folders.
    [[nodiscard]] static bool IsSameItem(const ShellFolder& firstFolder, ItemIdView first,
                                         const ShellFolder& secondFolder, ItemIdView second);
};

// The order of two nodes below one parent. Equal if they cannot be compared.
[[nodiscard]] int CompareItemIds(const ShellTreeItem& first, const ShellTreeItem& second);

}  // namespace quorbit
