// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Which mounted file systems a person would call a drive, and what to call them. Decided by the
// mount table alone: no mount point is touched.

#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/path_text.h"
#include "platform/posix/mount_table.h"
#include "platform/posix/shell/mount_rules.h"

namespace quorbit {

struct ShellVolume {
    std::string path;   // with closing separator: "/", "/media/me/stick/", "C:\"
    std::string label;  // for the screen, the path in brackets: "stick (/media/me/stick)"
    VolumeKind kind = VolumeKind::Fixed;
};

// Label of a file system by the canonical path of its device.
using VolumeLabels = std::map<std::string, std::string>;

// The labels that udev(7) lays down as links in the folder disk/by-label of a folder of devices.
[[nodiscard]] VolumeLabels ReadVolumeLabels(const std::string& deviceFolder);

// The root folder, always; file systems on block devices, mounted shares and FUSE file systems;
// mapped drives. Left out, since a person reaches them through the root folder at best: pseudo file
// systems; what is mounted at places of the system (/boot and below, /run but for /run/media, ...)
// or below a hidden folder; a second mount of something that is already listed, and a mounted part
// of a listed file system, unless it is a subvolume or a share of its own.
// By path. deviceFolder: where sources of mounts are devices, "/dev/".
[[nodiscard]] std::vector<ShellVolume> ListVolumes(const std::vector<MountEntry>& mounts,
                                                   const DriveMap& drives,
                                                   const std::string& deviceFolder);

// Mount points of the current user's GVfs, below which each open share is a folder. GVfs is the
// desktop's own way to shares, cameras and phones.
[[nodiscard]] std::vector<std::string> ListGvfsFolders(const std::vector<MountEntry>& mounts);

}  // namespace quorbit
