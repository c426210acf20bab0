// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/item_id_content.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace quorbit {

namespace {

constexpr std::size_t kHeadSize = 4;        // size, kind, detail
constexpr std::size_t kPathLengthSize = 2;  // volumes only
constexpr std::size_t kMost = std::numeric_limits<std::uint16_t>::max();

void Append(std::vector<std::uint8_t>& bytes, std::size_t number)
{
    bytes.push_back(static_cast<std::uint8_t>(number & 0xFFU));
    bytes.push_back(static_cast<std::uint8_t>(number >> 8U));
}

void Append(std::vector<std::uint8_t>& bytes, std::string_view text)
{
    bytes.insert(bytes.end(), text.begin(), text.end());
}

bool IsComponent(std::string_view name)
{
    constexpr std::string_view kForbidden("/\0", 2);
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(kForbidden) == std::string_view::npos;
}

bool IsVolumePath(std::string_view path)
{
    return !path.empty() && path.find('\0') == std::string_view::npos;
}

// text: the content of the id after kind and detail.
std::optional<ItemIdContent> ReadVolume(std::uint8_t detail, std::string_view text)
{
    if (text.size() < kPathLengthSize) {
        return std::nullopt;
    }
    const std::size_t length = static_cast<std::uint8_t>(text[0]) +
                               (std::size_t{static_cast<std::uint8_t>(text[1])} << 8U);
    text.remove_prefix(kPathLengthSize);
    if (length > text.size() || !IsVolumePath(text.substr(0, length))) {
        return std::nullopt;
    }
    return ItemIdContent{ShellItemKind::Volume, detail, text.substr(0, length),
                         text.substr(length)};
}

// Treats all items that are not folders alike, since a parsing name does not distinguish a link
// from a file.
int Rank(ShellItemKind kind)
{
    return static_cast<int>(std::min(kind, ShellItemKind::File));
}

}  // namespace

ItemIdList MakeItemId(const ItemIdContent& content)
{
    const bool isVolume = content.kind == ShellItemKind::Volume;
    const std::size_t size =
        kHeadSize + (isVolume ? kPathLengthSize + content.label.size() : 0) + content.name.size();
    if (size > kMost) {
        return {};
    }
    std::vector<std::uint8_t> bytes;
    bytes.reserve(size + kTerminatorSize);
    Append(bytes, size);
    bytes.push_back(static_cast<std::uint8_t>(content.kind));
    bytes.push_back(content.detail);
    if (isVolume) {
        Append(bytes, content.name.size());
    }
    Append(bytes, content.name);
    if (isVolume) {
        Append(bytes, content.label);
    }
    Append(bytes, std::size_t{0});
    return ItemIdList(std::move(bytes));
}

std::optional<ItemIdContent> ReadItemId(ItemIdView id)
{
    const std::size_t size = ItemIdSize(id);
    if (size < kHeadSize) {
        return std::nullopt;
    }
    const auto kind = static_cast<ShellItemKind>(id[2]);
    const std::string_view text(reinterpret_cast<const char*>(id.data()) + kHeadSize,
                                size - kHeadSize);
    switch (kind) {
        case ShellItemKind::Computer:
        case ShellItemKind::Network:
            return text.empty() ? std::optional(ItemIdContent{kind, id[3], {}, {}}) : std::nullopt;
        case ShellItemKind::Volume:
            return ReadVolume(id[3], text);
        case ShellItemKind::Folder:
        case ShellItemKind::File:
        case ShellItemKind::Link:
        case ShellItemKind::Special:
            return IsComponent(text) ? std::optional(ItemIdContent{kind, id[3], text, {}})
                                     : std::nullopt;
    }
    return std::nullopt;
}

int CompareContents(const ItemIdContent& first, const ItemIdContent& second, const NameOrder& order)
{
    const int ranks = Rank(first.kind) - Rank(second.kind);
    return ranks != 0 ? ranks : order.Compare(first.name, second.name);
}

}  // namespace quorbit
