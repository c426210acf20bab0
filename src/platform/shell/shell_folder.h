// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A folder of the shell namespace: the desktop, "My Computer", "Network Neighborhood", a drive, a
// folder on a drive.
//
// Only an enumerator touches a disk. Everything else answers from the ids, so that it may be asked
// in the window's thread though the disk behind the folder does not answer any more. What that
// costs: a folder that has meanwhile gone can still be bound, and first its enumerator tells.
//
// Folders are immutable and shared; any thread.

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

// One walk over the items of a folder. One thread at a time; may wait for a disk, for ever if that
// is a server that does not answer: FolderReader walks where nobody waits.
class ShellEnumerator {
public:
    virtual ~ShellEnumerator() = default;

    // The single id of the next item, nothing at the end or after a stop. After an error the walk
    // is over.
    virtual Result<std::optional<ItemIdList>> Next() = 0;

    // Name, kind, size, time and attribute word of the item that Next gave last.
    virtual Result<FindData> ReadDetails() = 0;
};

class ShellFolder {
public:
    virtual ~ShellFolder() = default;

    // flags: SHCONTF_. The items come in no particular order. A stop that is asked for ends the
    // walk at the next item. Never null; a folder that cannot be read shows at the first Next.
    // Without SHCONTF_INCLUDEHIDDEN the attributes of each item have to be read; who needs folders
    // alone saves much by asking for SHCONTF_FOLDERS alone.
    [[nodiscard]] virtual std::unique_ptr<ShellEnumerator> EnumObjects(
        std::uint32_t flags, std::stop_token stop) const = 0;

    // Those bits of the mask (SFGAO_) that the item has.
    [[nodiscard]] virtual Result<std::uint32_t> GetAttributesOf(ItemIdView id,
                                                                std::uint32_t mask) const = 0;

    // SHGDN_NORMAL: text for the screen. Control characters and bytes that are not UTF-8 are
    // escaped, so it need not be a name that the system knows.
    // SHGDN_FORPARSING: the item's path as bytes, with a closing separator for a folder; for what
    // has no path, a name that ParseDisplayName of the desktop understands.
    [[nodiscard]] virtual Result<std::string> GetDisplayNameOf(ItemIdView id,
                                                               std::uint32_t flags) const = 0;

    // The folder that an item of this folder is; NotAFolder for any other item.
    [[nodiscard]] virtual Result<std::shared_ptr<const ShellFolder>> BindToObject(
        ItemIdView id) const = 0;

    // Negative, zero or positive. Zero only for the same item of one folder: ids of two folders are
    // compared by what they hold, which is a name. My Computer, Network Neighborhood, volumes,
    // folders, then the rest; names as a person sorts them: numbers by their value, case aside.
    [[nodiscard]] virtual Result<int> CompareIDs(ItemIdView first, ItemIdView second) const = 0;

    // The absolute list for a parsing name; only the desktop parses. A closing separator says that
    // the last name is that of a folder, as in the names that folders give. Whether there is such
    // an item is not looked at. Relative paths, and those with "." or ".." in them, are refused.
    [[nodiscard]] virtual Result<ItemIdList> ParseDisplayName(std::string_view name) const = 0;
};

using ShellFolderPtr = std::shared_ptr<const ShellFolder>;

}  // namespace quorbit
