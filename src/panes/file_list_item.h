// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// From what a folder tells of an item to a row of the list of files.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/shell/folder_reader.h"
#include "platform/shell/shell_list_item.h"

namespace quorbit {

// SFGAO_ bits that MakeListItem wants to know.
inline constexpr std::uint32_t kListAttributes = 0xF0000170;

// Nothing for an item that no batch could name: neither with a path nor a way to one. parentText:
// the node whose folder it is, as shown; a name on a server is cut by it. m_nRow is left 0.
[[nodiscard]] std::optional<ShellListItem> MakeListItem(FolderItem item,
                                                        const ShellFolderPtr& folder,
                                                        const std::string& parentText);

}  // namespace quorbit
