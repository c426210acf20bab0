// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What is mounted where, by /proc/self/mountinfo; see proc(5). Nothing here touches a mounted file
// system, so a server that does not answer holds nobody up. Any thread.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/error.h"

namespace quorbit {

// One line of the table. Text is bytes, with the table's escapes resolved.
struct MountEntry {
    std::uint32_t id = 0;
    std::uint32_t parent = 0;  // id of the mount that this one lies on
    std::uint32_t major = 0;   // device number; major is 0 where there is no block device
    std::uint32_t minor = 0;
    std::string root;          // what of the file system is seen here: "/", or a part of it
    std::string mountPoint;    // without closing separator, except "/"
    std::string options;       // of this mount, comma separated
    std::string type;          // e.g. "ext4", "fuse.sshfs"
    std::string source;        // device, server and path, or anything else; may be empty
    std::string superOptions;  // of the file system, comma separated
};

// In the order of the text; lines that are not of the documented form are left out.
[[nodiscard]] std::vector<MountEntry> ParseMountTable(std::string_view text);

// The table as it is now.
[[nodiscard]] Result<std::vector<MountEntry>> ReadMountTable();

// The mounts that can be reached by their mount points, each mount point once: those that lie
// under another mount are left out. In the order of the table.
[[nodiscard]] std::vector<MountEntry> VisibleMounts(const std::vector<MountEntry>& mounts);

// The mount that an absolute path lies on, by its text: links in the path are not looked at. Null
// if the table holds none. The pointer is into the table.
[[nodiscard]] const MountEntry* MountOf(const std::vector<MountEntry>& visible,
                                        std::string_view path);

// Whether the comma separated options hold exactly this one, e.g. "user_id=1000".
[[nodiscard]] bool HasMountOption(std::string_view options, std::string_view option);

// Whether a path is a folder or lies below it, both absolute and without closing separator.
[[nodiscard]] bool IsAtOrBelow(std::string_view path, std::string_view folder);

}  // namespace quorbit
