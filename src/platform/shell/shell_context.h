// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Data shared by all folders of a shell namespace. Any thread.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/error.h"
#include "platform/posix/mount_table.h"
#include "platform/posix/shell/volume_list.h"
#include "platform/shell/item_id_list.h"
#include "platform/shell/name_order.h"
#include "platform/shell/shell_sources.h"

namespace quorbit {

struct ShellContext {
    explicit ShellContext(ShellSources from);

    ShellSources sources;
    NameOrder order;

    // Reads the current mount table; empty if it cannot be read.
    [[nodiscard]] std::vector<MountEntry> Mounts() const;
    // Returns the drives of My Computer, sorted by path. Includes network drives.
    [[nodiscard]] std::vector<ShellVolume> Volumes(const std::vector<MountEntry>& mounts) const;
};

// Create the single id of a volume, and of a location below a GVfs mount point.
[[nodiscard]] ItemIdList MakeVolumeId(const ShellVolume& volume);
[[nodiscard]] ItemIdList MakeGvfsId(const std::string& mountPoint, std::string_view name);

// Parsing names of the folders that have no path.
inline constexpr std::string_view kComputerParsingName = "::My Computer";
inline constexpr std::string_view kNetworkParsingName = "::Network Neighborhood";

}  // namespace quorbit
