// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/placed_items.h"

#include <algorithm>
#include <utility>

#include "platform/case_folding.h"

namespace quorbit {
namespace {

// Returns the name with the case of its ASCII letters swapped, or the name itself if it has none.
std::string SwapCase(std::string name)
{
    for (char& c : name) {
        const char lower = case_folding::Lower(c);
        if (lower != c) {
            c = lower;
        } else if (c >= 'a' && c <= 'z') {
            c = static_cast<char>(c - 'a' + 'A');
        }
    }
    return name;
}

bool IsSameItem(const FindData& a, const FindData& b)
{
    return a.device == b.device && a.inode == b.inode;
}

// Otherwise two names may be hard links to one file. The links of a folder are not names.
bool HasOneName(const FindData& item)
{
    return item.links < 2 || item.kind == ItemKind::Folder;
}

}  // namespace

void PlacedItems::LearnCase(FileSystem& files, const Folder& folder, const std::string& name)
{
    const std::string swapped = SwapCase(name);
    if (m_case != Case::Unknown || swapped == name) {
        return;
    }
    const auto other = files.Probe(folder, swapped);
    if (!other) {
        if (other.GetError().Kind() == ErrorKind::Missing) {
            m_case = Case::Distinguished;
        }
        return;  // otherwise unknown; the next item may tell
    }
    const auto item = files.Probe(folder, name);
    if (item && !IsSameItem(*item, *other)) {
        m_case = Case::Distinguished;
    } else if (item && HasOneName(*item)) {
        m_case = Case::Ignored;
    }
}

bool PlacedItems::Add(const FindData& item)
{
    if (Has(item)) {
        return true;
    }
    if (m_items.size() >= kMost) {
        return std::exchange(m_bFull, true);
    }
    m_items.emplace(Key{item.device, item.inode}, item.name);
    return true;
}

bool PlacedItems::Has(const FindData& item) const
{
    const auto [begin, end] = m_items.equal_range({item.device, item.inode});
    return std::any_of(begin, end, [&](const auto& placed) {
        // Without hard links the identity alone decides, whatever letters the file system folds.
        return HasOneName(item) || EqualNoCase(placed.second, item.name);
    });
}

bool PlacedItems::HasUnderOtherName(const FindData& item) const
{
    const auto [begin, end] = m_items.equal_range({item.device, item.inode});
    return begin != end &&
           std::none_of(begin, end, [&](const auto& p) { return p.second == item.name; });
}

}  // namespace quorbit
