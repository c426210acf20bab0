// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/system_folder.h"

#include <utility>

#include "platform/path_text.h"
#include "platform/shell/shell_constants.h"

namespace quorbit {

namespace {

Error NoSuchItem()
{
    return Error(ErrorKind::Missing);
}

std::uint32_t AttributesOf(const ItemIdContent& item)
{
    const std::uint32_t subfolder = item.detail == kHasSubfolder ? SFGAO_HASSUBFOLDER : 0;
    constexpr std::uint32_t kFolder = SFGAO_FOLDER | SFGAO_FILESYSANCESTOR;
    switch (item.kind) {
        case ShellItemKind::Computer:
            return kFolder | SFGAO_HASSUBFOLDER;
        case ShellItemKind::Network:
            return kFolder | subfolder;
        case ShellItemKind::Volume:
            return kFolder | SFGAO_HASSUBFOLDER | SFGAO_FILESYSTEM;
        case ShellItemKind::Folder:
            return kFolder | subfolder | SFGAO_FILESYSTEM | SFGAO_CANRENAME;
        default:
            return SFGAO_FILESYSTEM | SFGAO_CANRENAME;
    }
}

std::string NameToShow(const ItemIdContent& item)
{
    switch (item.kind) {
        case ShellItemKind::Computer:
            return "My Computer";
        case ShellItemKind::Network:
            return "Network Neighborhood";
        case ShellItemKind::Volume:
            return std::string(item.label);
        default:
            return Printable(item.name);
    }
}

}  // namespace

SystemFolder::SystemFolder(std::shared_ptr<const ShellContext> context)
    : m_context(std::move(context))
{
}

Result<std::uint32_t> SystemFolder::GetAttributesOf(ItemIdView id, std::uint32_t mask) const
{
    const auto item = ReadItemId(id);
    if (!item) {
        return NoSuchItem();
    }
    // Without a parsing name the item is not accessible as a file, whatever it is on the disk.
    constexpr std::uint32_t kNeedsPath =
        SFGAO_FILESYSTEM | SFGAO_FILESYSANCESTOR | SFGAO_HASSUBFOLDER | SFGAO_CANRENAME;
    const std::uint32_t attributes = AttributesOf(*item);
    return mask & (ParsingNameOf(*item).empty() ? attributes & ~kNeedsPath : attributes);
}

Result<std::string> SystemFolder::GetDisplayNameOf(ItemIdView id, std::uint32_t flags) const
{
    const auto item = ReadItemId(id);
    if (!item) {
        return NoSuchItem();
    }
    if ((flags & SHGDN_FORPARSING) == 0) {
        return NameToShow(*item);
    }
    std::string name = ParsingNameOf(*item);
    if (name.empty()) {
        return NoSuchItem();
    }
    return name;
}

Result<std::shared_ptr<const ShellFolder>> SystemFolder::BindToObject(ItemIdView id) const
{
    const auto item = ReadItemId(id);
    if (!item) {
        return NoSuchItem();
    }
    if (!IsFolderKind(item->kind)) {
        return Error(ErrorKind::NotAFolder);
    }
    auto folder = Bind(*item);
    if (folder == nullptr) {
        return NoSuchItem();
    }
    return folder;
}

Result<int> SystemFolder::CompareIDs(ItemIdView first, ItemIdView second) const
{
    const auto firstItem = ReadItemId(first);
    const auto secondItem = ReadItemId(second);
    if (!firstItem || !secondItem) {
        return NoSuchItem();
    }
    return CompareContents(*firstItem, *secondItem, m_context->order);
}

Result<ItemIdList> SystemFolder::ParseDisplayName(std::string_view) const
{
    return Error(ErrorKind::NotSupported, "Only the desktop resolves names");
}

}  // namespace quorbit
