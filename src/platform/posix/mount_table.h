// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Parses the mount table, /proc/self/mountinfo (proc(5)). Never accesses a mounted file system, so
// an unresponsive server cannot block it. Any thread.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/error.h"

namespace quorbit {

// One line of the table. Strings are bytes with the table's escapes decoded.
struct MountEntry {
    std::uint32_t id = 0;
    std::uint32_t parent = 0;  // id of the mount that contains this mount point
    std::uint32_t major = 0;   // device number; major is 0 for file systems without a block device
    std::uint32_t minor = 0;
    std::string root;          // mounted part of the file system; "/" if all of it
    std::string mountPoint;    // without trailing separator, except "/"
    std::string options;       // options of this mount, comma-separated
    std::string type;          // e.g. "ext4", "fuse.sshfs"
    std::string source;        // device, server and path, or any other text; may be empty
    std::string superOptions;  // options of the file system, comma-separated
};

// Returns the mounts in the order of the text. Malformed lines are skipped.
[[nodiscard]] std::vector<MountEntry> ParseMountTable(std::string_view text);

// Reads and parses the current table.
[[nodiscard]] Result<std::vector<MountEntry>> ReadMountTable();

// Returns the mounts that are reachable by their mount points, one per mount point, in table order.
// Mounts hidden by another mount are omitted.
[[nodiscard]] std::vector<MountEntry> VisibleMounts(const std::vector<MountEntry>& mounts);

// Returns the innermost mount that contains an absolute path. Compares text only and does not
// resolve links. Null if there is none. The result points into `visible`.
[[nodiscard]] const MountEntry* MountOf(const std::vector<MountEntry>& visible,
                                        std::string_view path);

// Returns true if comma-separated options contain exactly this one, e.g. "user_id=1000".
[[nodiscard]] bool HasMountOption(std::string_view options, std::string_view option);

// Returns true if path is folder or below it. Both are absolute and without trailing separator.
[[nodiscard]] bool IsAtOrBelow(std::string_view path, std::string_view folder);

}  // namespace quorbit
