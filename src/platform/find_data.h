// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The properties of one item, as returned by a listing or a probe.

#pragma once

#include <cstdint>
#include <string>

namespace quorbit {

// The attribute word. Values as in MS-FSCC 2.6 and <linux/msdos_fs.h>.
inline constexpr std::uint32_t kAttributeReadOnly = 0x01;
inline constexpr std::uint32_t kAttributeHidden = 0x02;
inline constexpr std::uint32_t kAttributeSystem = 0x04;
inline constexpr std::uint32_t kAttributeFolder = 0x10;
inline constexpr std::uint32_t kAttributeArchive = 0x20;
inline constexpr std::uint32_t kAttributeNormal = 0x80;  // only alone: no other attribute is set

enum class ItemKind : std::uint8_t {
    Unknown,  // not reported by the listing; see ReadDetails
    File,
    Folder,
    Link,     // a symbolic link itself, never its target
    Special,  // FIFO, socket, device
};

struct FindData {
    std::string name;  // bytes, never "." or ".."
    ItemKind kind = ItemKind::Unknown;
    bool leftover = false;           // see FileSystem::SweepLeftovers
    std::uint64_t size = 0;          // bytes; set by ReadDetails, Probe and OpenSource
    std::int64_t modified = 0;       // last-write time, seconds since 1970-01-01 UTC; set with size
    std::uint32_t modifiedNsec = 0;  // fraction of that second, in nanoseconds
    // Identify the item among those that exist at one time; set with size.
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t links = 1;       // names of the file, 2 or more for hard links; set with size
    std::uint32_t attributes = 0;  // the attribute word; set by ReadAttributes only
};

}  // namespace quorbit
