// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Remembers which items of one destination folder belong to which name of the source, so that two
// names of a source that are one name at the destination are noticed. That happens if the folder
// ignores case, and if the files of several source folders go into one folder.
//
// Items are recognised by device and inode. File systems that assign inode numbers only while an
// item is cached (FAT, exFAT) may renumber an item after memory ran short; it is then not
// recognised. Worker thread only.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>

#include "platform/file_system.h"

namespace quorbit {

class PlacedItems {
public:
    // Bounds the memory to about 20 MB for one folder.
    static constexpr std::size_t kMost = 200'000;

    // Finds out once whether the folder ignores case. name: an item that exists in it.
    void LearnCase(FileSystem& files, const Folder& folder, const std::string& name);
    // Takes what is known of another folder, in which names are compared in the same way.
    void LearnCaseFrom(const PlacedItems& other) { m_case = other.m_case; }
    [[nodiscard]] bool KnowsCase() const { return m_case != Case::Unknown; }
    [[nodiscard]] bool IgnoresCase() const { return m_case == Case::Ignored; }

    // Remembers an item. Returns false once, when there are too many and this one is forgotten.
    bool Add(const FindData& item);
    // Returns true if an item with this identity was added under this name or under one that
    // differs in case only. `item` has the name of the source file and the identity found under
    // that name at the destination.
    [[nodiscard]] bool Has(const FindData& item) const;
    // The same, but only if the names differ.
    [[nodiscard]] bool HasUnderOtherName(const FindData& item) const;

private:
    enum class Case { Unknown, Ignored, Distinguished };
    struct Key {
        std::uint64_t device;
        std::uint64_t inode;
        bool operator==(const Key&) const = default;
    };
    struct Hash {
        std::size_t operator()(const Key& key) const
        {
            return std::hash<std::uint64_t>()(key.inode ^ (key.device << 48U));
        }
    };

    Case m_case = Case::Unknown;
    bool m_bFull = false;
    // Hard links have one identity and several names.
    std::unordered_multimap<Key, std::string, Hash> m_items;
};

}  // namespace quorbit
