// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What all folders of one shell namespace share.

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

    // As it is now; empty if it cannot be read.
    [[nodiscard]] std::vector<MountEntry> Mounts() const;
    // Drives of My Computer, by path. Network drives are among them.
    [[nodiscard]] std::vector<ShellVolume> Volumes(const std::vector<MountEntry>& mounts) const;
};

// The single id of a volume, and of a place below a GVfs mount point.
[[nodiscard]] ItemIdList MakeVolumeId(const ShellVolume& volume);
[[nodiscard]] ItemIdList MakeGvfsId(const std::string& mountPoint, std::string_view name);

// Parsing names of what has no path.
inline constexpr std::string_view kComputerParsingName = "::My Computer";
inline constexpr std::string_view kNetworkParsingName = "::Network Neighborhood";

}  // namespace quorbit
