// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/file_list_item.h"

#include <utility>

#include "panes/file_list_columns.h"
#include "panes/network_name.h"
#include "platform/shell/shell_constants.h"

namespace quorbit {
namespace {

bool IsListed(std::uint32_t attributes)
{
    constexpr std::uint32_t kSomething = SFGAO_HASSUBFOLDER | SFGAO_FILESYSTEM | SFGAO_FOLDER;
    return (attributes & kSomething) != 0 &&
           (attributes & (SFGAO_FILESYSANCESTOR | SFGAO_FILESYSTEM)) != 0 &&
           (attributes & (SFGAO_FILESYSTEM | SFGAO_CANRENAME)) != 0;
}

}  // namespace

std::optional<ShellListItem> MakeListItem(FolderItem item, const ShellFolderPtr& folder,
                                          const std::string& parentText)
{
    if (!IsListed(item.attributes)) {
        return std::nullopt;
    }
    ShellListItem row;
    row.m_pFolder = folder;
    row.m_pidlItem = std::move(item.id);
    row.m_dwAttributes = item.attributes;
    row.m_szName = (item.attributes & SFGAO_FILESYSANCESTOR) != 0
                       ? CutNetworkName(std::move(item.name), parentText)
                       : std::move(item.name);
    row.m_szType = std::move(item.type);
    if (item.details) {
        row.m_dwSizeKB = SizeInKb(item.details->size);
        row.m_tModified = item.details->modified;
        row.m_szAttributes = AttributeLetters(item.details->attributes);
    }
    return row;
}

}  // namespace quorbit
