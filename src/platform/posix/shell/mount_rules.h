// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Classifies mounts by their lines in the mount table. Pure functions.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/posix/mount_table.h"

namespace quorbit {

enum class VolumeKind : std::uint8_t { Fixed, Removable, Optical, Network };

// Returns true if the mount is shown as a drive; see ListVolumes.
[[nodiscard]] bool IsDriveMount(const MountEntry& mount);

// Returns true if the files are on another machine, or on the host of a virtual machine.
[[nodiscard]] bool IsNetworkMount(const MountEntry& mount);

[[nodiscard]] VolumeKind KindOfMount(const MountEntry& mount);

// Returns a title for the source of a network mount, e.g. "docs on server" for "//server/docs",
// "server:/export/docs", "me@server:docs" and "https://server/docs". Returns only the server if
// there is no path, and an empty string if no server can be determined.
[[nodiscard]] std::string ShareName(std::string_view source);

}  // namespace quorbit
