// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the ids of our own folders hold: a byte for the kind, a byte of detail, and the name. The id
// of a volume holds its path and its label; the path's length stands before them, u16 little
// endian.

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/shell/item_id_list.h"
#include "platform/shell/name_order.h"

namespace quorbit {

enum class ShellItemKind : std::uint8_t {
    Computer = 1,  // no name
    Network = 2,   // no name
    Volume = 3,    // detail: a VolumeKind
    Folder = 4,
    File = 5,
    Link = 6,     // an item of its own, never a folder, whatever it points to
    Special = 7,  // FIFO, socket, device
};

// Detail of Network and Folder: may have folders in it.
inline constexpr std::uint8_t kHasSubfolder = 1;

// The texts belong to the id that the content was read from, or to whoever makes one.
struct ItemIdContent {
    ShellItemKind kind = ShellItemKind::File;
    std::uint8_t detail = 0;
    std::string_view name;   // bytes; of a volume its path with closing separator
    std::string_view label;  // volumes only: the display name
};

// A single id; null if the texts do not fit into an id.
[[nodiscard]] ItemIdList MakeItemId(const ItemIdContent& content);

// Nothing if the view begins with no id of ours. A name that comes out of here is one component of
// a path and leads nowhere else.
[[nodiscard]] std::optional<ItemIdContent> ReadItemId(ItemIdView id);

[[nodiscard]] constexpr bool IsFolderKind(ShellItemKind kind)
{
    return kind <= ShellItemKind::Folder;
}

// The order of ShellFolder::CompareIDs.
[[nodiscard]] int CompareContents(const ItemIdContent& first, const ItemIdContent& second,
                                  const NameOrder& order);

}  // namespace quorbit
