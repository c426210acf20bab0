// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/desktop_folder.h"

#include <utility>
#include <vector>

#include "platform/path_text.h"
#include "platform/shell/computer_folder.h"
#include "platform/shell/file_folder.h"
#include "platform/shell/list_enumerator.h"
#include "platform/shell/network_folder.h"
#include "platform/shell/parsing_name.h"
#include "platform/shell/shell_constants.h"

namespace quorbit {

namespace {

std::vector<ItemIdList> VirtualFolders(const ShellContext& context, std::uint32_t flags)
{
    std::vector<ItemIdList> ids;
    if ((flags & SHCONTF_FOLDERS) != 0) {
        const bool places = HasNetworkPlaces(context, context.Mounts());
        ids.push_back(MakeItemId({ShellItemKind::Computer, 0, {}, {}}));
        ids.push_back(
            MakeItemId({ShellItemKind::Network, places ? kHasSubfolder : std::uint8_t{0}, {}, {}}));
    }
    return ids;
}

// Returns the folder with the user's desktop items; null if the user has none.
std::shared_ptr<const FileFolder> FilesOnDesktop(const std::shared_ptr<const ShellContext>& context)
{
    const std::string& path = context->sources.desktopFolder;
    return path.empty() ? nullptr
                        : std::make_shared<const FileFolder>(context, WithSeparator(path));
}

std::string ParsingNameOnDesktop(const ShellContext& context, const ItemIdContent& item)
{
    const std::string& folder = context.sources.desktopFolder;
    if (folder.empty() || item.kind < ShellItemKind::Folder) {
        return {};
    }
    std::string path = WithSeparator(folder) + std::string(item.name);
    return item.kind == ShellItemKind::Folder ? path + '/' : path;
}

}  // namespace

DesktopFolder::DesktopFolder(std::shared_ptr<const ShellContext> context)
    : SystemFolder(std::move(context))
{
}

std::unique_ptr<ShellEnumerator> DesktopFolder::EnumObjects(std::uint32_t flags,
                                                            std::stop_token stop) const
{
    const auto files = FilesOnDesktop(Context());
    return std::make_unique<ListEnumerator>(
        [context = Context(), flags] { return VirtualFolders(*context, flags); },
        files != nullptr ? files->EnumObjects(flags, std::move(stop)) : nullptr);
}

Result<ItemIdList> DesktopFolder::ParseDisplayName(std::string_view name) const
{
    return ParseAbsoluteName(*Context(), name);
}

std::string DesktopFolder::ParsingNameOf(const ItemIdContent& item) const
{
    switch (item.kind) {
        case ShellItemKind::Computer:
            return std::string(kComputerParsingName);
        case ShellItemKind::Network:
            return std::string(kNetworkParsingName);
        default:
            return ParsingNameOnDesktop(*Context(), item);
    }
}

std::shared_ptr<const ShellFolder> DesktopFolder::Bind(const ItemIdContent& item) const
{
    switch (item.kind) {
        case ShellItemKind::Computer:
            return std::make_shared<const ComputerFolder>(Context());
        case ShellItemKind::Network:
            return std::make_shared<const NetworkFolder>(Context());
        default:
            break;
    }
    std::string path = ParsingNameOnDesktop(*Context(), item);
    return path.empty() ? nullptr : std::make_shared<const FileFolder>(Context(), std::move(path));
}

ShellFolderPtr MakeDesktopFolder(ShellSources sources)
{
    return std::make_shared<const DesktopFolder>(
        std::make_shared<const ShellContext>(std::move(sources)));
}

}  // namespace quorbit
