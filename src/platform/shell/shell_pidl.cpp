// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/shell_pidl.h"

#include <algorithm>
#include <memory>
#include <span>
#include <utility>

#include "platform/path_text.h"
#include "platform/shell/shell_constants.h"

namespace quorbit {

namespace {

ItemIdView LastItemId(ItemIdView list)
{
    for (ItemIdView next = list; ItemIdSize(next) != 0;) {
        list = next;
        next = CShellPidl::GetNextItemId(next);
    }
    return list;
}

std::string WithoutClosingSeparator(std::string path)
{
    if (EndsInSeparator(path) && !IsRoot(path)) {
        path.pop_back();
    }
    return path;
}

}  // namespace

ItemIdView CShellPidl::GetNextItemId(ItemIdView id)
{
    return id.subspan(ItemIdSize(id));
}

std::size_t CShellPidl::GetIdListSize(ItemIdView list)
{
    if (list.empty()) {
        return 0;
    }
    std::size_t size = kTerminatorSize;
    for (std::size_t id = ItemIdSize(list); id != 0; id = ItemIdSize(list)) {
        size += id;
        list = list.subspan(id);
    }
    return size;
}

ItemIdList CShellPidl::CreateIdList(std::size_t size)
{
    return ItemIdList(std::vector<std::uint8_t>(size));
}

ItemIdList CShellPidl::ConcatIdLists(ItemIdView first, ItemIdView second)
{
    const std::size_t ofFirst = std::max(GetIdListSize(first), kTerminatorSize) - kTerminatorSize;
    const std::size_t ofSecond = std::max(GetIdListSize(second), kTerminatorSize) - kTerminatorSize;
    ItemIdList joined = CreateIdList(ofFirst + ofSecond + kTerminatorSize);
    const std::span<std::uint8_t> bytes = joined.Bytes();
    std::ranges::copy(first.first(ofFirst), bytes.begin());
    std::ranges::copy(second.first(ofSecond), bytes.subspan(ofFirst).begin());
    return joined;
}

ItemIdList CShellPidl::CopySingleItemId(ItemIdView id)
{
    return ConcatIdLists({}, id.first(ItemIdSize(id)));
}

std::optional<std::string> CShellPidl::GetItemName(const ShellFolder& folder, ItemIdView id,
                                                   std::uint32_t flags)
{
    auto name = folder.GetDisplayNameOf(id, flags);
    return name ? std::optional(std::move(*name)) : std::nullopt;
}

std::optional<ItemIdList> CShellPidl::GetAbsoluteIdList(const ShellFolder& desktop,
                                                        const ShellFolder& folder, ItemIdView id)
{
    const auto name = GetItemName(folder, id, SHGDN_FORPARSING);
    if (!name) {
        return std::nullopt;
    }
    auto list = desktop.ParseDisplayName(*name);
    return list ? std::optional(std::move(*list)) : std::nullopt;
}

std::optional<std::string> CShellPidl::GetPathOf(const ShellFolder& folder, ItemIdView id)
{
    const auto attributes = folder.GetAttributesOf(id, SFGAO_FILESYSTEM);
    if (!attributes || *attributes == 0) {
        return std::nullopt;
    }
    auto path = GetItemName(folder, id, SHGDN_FORPARSING);
    return path ? std::optional(WithoutClosingSeparator(std::move(*path))) : std::nullopt;
}

std::optional<std::string> CShellPidl::GetPathFromIdList(const ShellFolder& desktop,
                                                         ItemIdView list)
{
    if (ItemIdSize(list) == 0) {
        return std::nullopt;
    }
    const ShellFolder* folder = &desktop;
    ShellFolderPtr held;
    for (ItemIdView next = GetNextItemId(list); ItemIdSize(next) != 0; next = GetNextItemId(next)) {
        auto bound = folder->BindToObject(list);
        if (!bound) {
            return std::nullopt;
        }
        held = std::move(*bound);
        folder = held.get();
        list = next;
    }
    return GetPathOf(*folder, list);
}

ItemIcon CShellPidl::GetItemIcon(ItemIdView list, bool open)
{
    return IconOfItem(LastItemId(list), open);
}

bool CShellPidl::IsSameItem(const ShellFolder& firstFolder, ItemIdView first,
                            const ShellFolder& secondFolder, ItemIdView second)
{
    const auto name = GetItemName(firstFolder, first, SHGDN_FORPARSING);
    return name && name == GetItemName(secondFolder, second, SHGDN_FORPARSING);
}

int CompareItemIds(const ShellTreeItem& first, const ShellTreeItem& second)
{
    if (first.m_pFolder == nullptr) {
        return 0;
    }
    const auto order = first.m_pFolder->CompareIDs(first.m_pidlItem, second.m_pidlItem);
    return order ? *order : 0;
}

}  // namespace quorbit
