// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/file_folder.h"

#include <utility>

#include "platform/path_text.h"
#include "platform/posix/shell/file_enumerator.h"

namespace quorbit {

FileFolder::FileFolder(std::shared_ptr<const ShellContext> context, std::string path)
    : SystemFolder(std::move(context)), m_strPath(std::move(path))
{
}

std::unique_ptr<ShellEnumerator> FileFolder::EnumObjects(std::uint32_t flags,
                                                         std::stop_token stop) const
{
    return std::make_unique<FileEnumerator>(Context(), m_strPath, flags, std::move(stop));
}

std::string FileFolder::ParsingNameOf(const ItemIdContent& item) const
{
    if (item.kind < ShellItemKind::Folder) {
        return {};
    }
    // On a mapped drive, a name that contains a backslash would be the path of another item.
    const char separator = SeparatorOf(m_strPath);
    if (item.name.find(separator) != std::string_view::npos) {
        return {};
    }
    std::string path = m_strPath + std::string(item.name);
    return item.kind == ShellItemKind::Folder ? path + separator : path;
}

std::shared_ptr<const ShellFolder> FileFolder::Bind(const ItemIdContent& item) const
{
    std::string path = ParsingNameOf(item);
    return path.empty() ? nullptr : std::make_shared<const FileFolder>(Context(), std::move(path));
}

}  // namespace quorbit
