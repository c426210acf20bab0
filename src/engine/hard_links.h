// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Remembers the copies of source files that have several names (hard links), so that their other
// names within the same entry become hard links at the destination too. Only copies that this run
// has made are used: a file that was skipped may differ from its source. Worker thread only.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

#include "platform/file_system.h"

namespace quorbit {

class HardLinks {
public:
    // Bounds the memory to about 20 MB. Files beyond it are copied under each of their names.
    static constexpr std::size_t kMost = 100'000;

    // A copy with its open folder.
    struct Copy {
        std::unique_ptr<Folder> folder;
        PlacedFile file;  // refers to the folder
    };

    // Returns the copy of a source file, or a copy without a folder if there is none. The folder is
    // opened by its path; the identity in the result ensures that only the copy itself is linked.
    [[nodiscard]] Copy Find(FileSystem& files, const FindData& source) const;
    // Remembers that a source file was copied to `name` in a folder with this path. Call it for
    // each of its names; only the first one is kept, and it is forgotten after the last one.
    // Returns false once, when there are too many files to remember this one.
    bool Add(FileSystem& files, const FindData& source, const Folder& folder,
             const std::string& folderPath, const std::string& name);

private:
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
    struct Known {
        std::string folderPath;
        FindData item;                // the copy
        std::uint64_t namesLeft = 0;  // of the source file, not processed yet
    };

    bool m_bFull = false;
    std::unordered_map<Key, Known, Hash> m_known;  // by identity of the source file
};

}  // namespace quorbit
