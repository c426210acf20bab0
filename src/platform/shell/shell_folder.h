// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A folder of the shell namespace: the desktop, "My Computer", "Network Neighborhood", a drive, or
// a folder on a drive.
//
// Only enumerators access a disk. All other functions use only the ids, so they can be called in
// the user interface thread even if the disk does not respond. Therefore a deleted folder can still
// be bound; only its enumerator reports the error.
//
// Folders are immutable and shared. Any thread.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "platform/error.h"
#include "platform/find_data.h"
#include "platform/shell/item_id_list.h"

namespace quorbit {

// Enumerates the items of a folder. One thread at a time. May block for ever on a server that does
// not respond, so the user interface uses FolderReader.
class ShellEnumerator {
public:
    virtual ~ShellEnumerator() = default;

    // Returns the single id of the next item, or nullopt at the end or after a stop. An error ends
    // the enumeration.
    virtual Result<std::optional<ItemIdList>> Next() = 0;

    // Returns name, kind, size, time and attribute word of the item that Next returned last.
    virtual Result<FindData> ReadDetails() = 0;
};

class ShellFolder {
public:
    virtual ~ShellFolder() = default;

    // flags: SHCONTF_. Items are in no particular order. A stop request ends the enumeration at the
    // next item. Never null; errors are reported by the first Next. Without SHCONTF_INCLUDEHIDDEN
    // the attributes of each item must be read. Callers that need only folders should pass only
    // SHCONTF_FOLDERS, since other items are then skipped unread.
    [[nodiscard]] virtual std::unique_ptr<ShellEnumerator> EnumObjects(
        std::uint32_t flags, std::stop_token stop) const = 0;

    // Returns the bits of the mask (SFGAO_) that the item has.
    [[nodiscard]] virtual Result<std::uint32_t> GetAttributesOf(ItemIdView id,
                                                                std::uint32_t mask) const = 0;

    // SHGDN_NORMAL: returns text for display. Control characters and bytes that are not UTF-8 are
    // escaped, so it may differ from the file name.
    //
    // SHGDN_FORPARSING: returns the item's path as bytes, with a trailing separator for a folder.
    // If the item has no path, returns a name that the desktop's ParseDisplayName accepts, or
    // Missing.
    [[nodiscard]] virtual Result<std::string> GetDisplayNameOf(ItemIdView id,
                                                               std::uint32_t flags) const = 0;

    // Returns the folder for an item of this folder; NotAFolder for any other item.
    [[nodiscard]] virtual Result<std::shared_ptr<const ShellFolder>> BindToObject(
        ItemIdView id) const = 0;

    // Returns a negative value, 0 or a positive value. Items of the same folder are equal only if
    // they are the same item. Ids of different folders are compared by their content, which is a
    // name. Order: My Computer, Network Neighborhood, volumes, folders, then all other items; names
    // in the order of NameOrder.
    [[nodiscard]] virtual Result<int> CompareIDs(ItemIdView first, ItemIdView second) const = 0;

    // Returns the absolute list of a parsing name; NotSupported except for the desktop. A trailing
    // separator marks the last name as a folder, as in the names that folders return. Does not
    // check that the item exists. Relative paths and paths with "." or ".." are rejected with
    // Invalid.
    [[nodiscard]] virtual Result<ItemIdList> ParseDisplayName(std::string_view name) const = 0;
};

using ShellFolderPtr = std::shared_ptr<const ShellFolder>;

}  // namespace quorbit
