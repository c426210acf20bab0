// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a line of the mount table says of a volume.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/posix/mount_table.h"

namespace quorbit {

enum class VolumeKind : std::uint8_t { Fixed, Removable, Optical, Network };

// Whether the mount is a drive in a person's eyes; see ListVolumes.
[[nodiscard]] bool IsDriveMount(const MountEntry& mount);

// Whether its files come from another machine, or from the host of a virtual one.
[[nodiscard]] bool IsNetworkMount(const MountEntry& mount);

[[nodiscard]] VolumeKind KindOfMount(const MountEntry& mount);

// "docs on server" for the source of a network mount ("//server/docs", "server:/export/docs",
// "me@server:docs", "https://server/docs"); the server alone if nothing follows it; empty if no
// server can be made out.
[[nodiscard]] std::string ShareName(std::string_view source);

}  // namespace quorbit
