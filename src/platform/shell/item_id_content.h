// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Encodes and decodes the ids of Quorbit's own folders: a byte for the kind, a byte of detail, and
// the name. The id of a volume contains the length of its path (u16, little endian), its path and
// its label.

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
    Link = 6,     // a symbolic link itself; never a folder, whatever its target
    Special = 7,  // FIFO, socket, device
};

// Detail of Network and Folder: may contain folders.
inline constexpr std::uint8_t kHasSubfolder = 1;

// The decoded content of an id. Does not own its texts: they point into the id, or into strings of
// the caller.
struct ItemIdContent {
    ShellItemKind kind = ShellItemKind::File;
    std::uint8_t detail = 0;
    std::string_view name;   // bytes; for a volume its path with trailing separator
    std::string_view label;  // volumes only: the display name
};

// Returns a single id, or a null list if the texts are too long (65,535 bytes per id).
[[nodiscard]] ItemIdList MakeItemId(const ItemIdContent& content);

// Decodes the first id of a view. Returns nullopt if it is not one of ours. The name of a folder,
// file, link or special file is guaranteed to be one path component, so it cannot lead out of its
// folder.
[[nodiscard]] std::optional<ItemIdContent> ReadItemId(ItemIdView id);

[[nodiscard]] constexpr bool IsFolderKind(ShellItemKind kind)
{
    return kind <= ShellItemKind::Folder;
}

// Compares in the order of ShellFolder::CompareIDs.
[[nodiscard]] int CompareContents(const ItemIdContent& first, const ItemIdContent& second,
                                  const NameOrder& order);

}  // namespace quorbit
