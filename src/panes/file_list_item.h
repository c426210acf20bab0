// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Converts an item of a folder to a row of the file list.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/shell/folder_reader.h"
#include "platform/shell/shell_list_item.h"

namespace quorbit {

// The SFGAO_ bits that MakeListItem requires in FolderItem::attributes.
inline constexpr std::uint32_t kListAttributes = 0xF0000170;

// Returns nullopt for an item that no batch can name: one that neither has a path nor leads to
// items that have one. parentText is the display name of the tree node of the folder; it is cut
// from names on a server (see CutNetworkName). Leaves m_nRow 0.
[[nodiscard]] std::optional<ShellListItem> MakeListItem(FolderItem item,
                                                        const ShellFolderPtr& folder,
                                                        const std::string& parentText);

}  // namespace quorbit
