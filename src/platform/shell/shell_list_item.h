// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The data of a row in a list of the shell namespace.

#pragma once

#include <cstdint>
#include <string>

#include "platform/shell/item_id_list.h"
#include "platform/shell/shell_folder.h"

namespace quorbit {

// Texts are never truncated, and the time is not limited to 2038.
struct ShellListItem {
    ShellFolderPtr m_pFolder;          // the displayed folder
    ItemIdList m_pidlItem;             // single id of the row in that folder
    std::int32_t m_nRow = 0;           // the row number at insertion
    std::uint32_t m_dwAttributes = 0;  // SFGAO_ bits
    std::string m_szName;              // display name, as shown
    std::string m_szType;              // type name, as shown
    std::uint64_t m_dwSizeKB = 0;      // as shown; plain files only
    std::int64_t m_tModified = 0;      // seconds since 1970; plain files only
    std::string m_szAttributes;        // letters, as shown; plain files only
};

}  // namespace quorbit
