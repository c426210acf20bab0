// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/folder_listing.h"

#include <utility>

#include "platform/path_text.h"
#include "platform/shell/item_id_content.h"
#include "platform/shell/shell_constants.h"
#include "platform/shell/shell_pidl.h"

namespace quorbit {
namespace {

std::vector<std::string> NamesOf(const FolderBatch& batch, ListedKind kind)
{
    std::vector<std::string> names;
    names.reserve(batch.items.size());
    for (const FolderItem& item : batch.items) {
        const bool isFolder = (item.attributes & SFGAO_FOLDER) != 0;
        const auto content = ReadItemId(item.id);
        if (content && isFolder == (kind == ListedKind::Folders)) {
            names.emplace_back(content->name);
        }
    }
    return names;
}

}  // namespace

ShellFolderPtr FindFolder(const ShellFolder& desktop, const std::string& path)
{
    const auto list = desktop.ParseDisplayName(WithSeparator(path));
    if (!list) {
        return nullptr;
    }
    ShellFolderPtr folder;
    for (ItemIdView id = *list; ItemIdSize(id) != 0; id = CShellPidl::GetNextItemId(id)) {
        const ItemIdList single = CShellPidl::CopySingleItemId(id);
        auto next = folder ? folder->BindToObject(single) : desktop.BindToObject(single);
        if (!next) {
            return nullptr;
        }
        folder = *std::move(next);
    }
    return folder;
}

FolderListing::FolderListing(const ShellFolderPtr& desktop, const std::string& path,
                             ListedKind kind, Deliver deliver)
{
    const ShellFolderPtr folder = desktop ? FindFolder(*desktop, path) : nullptr;
    if (!folder) {
        return;
    }
    FolderRequest request;
    request.flags = SHCONTF_INCLUDEHIDDEN |
                    (kind == ListedKind::Folders ? SHCONTF_FOLDERS : SHCONTF_NONFOLDERS);
    request.attributes = SFGAO_FOLDER;
    m_feed.emplace(folder, request, [kind, deliver = std::move(deliver)](const FolderBatch& batch) {
        deliver(NamesOf(batch, kind));
    });
}

}  // namespace quorbit
