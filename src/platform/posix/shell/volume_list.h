// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Selects the mounted file systems to show as drives, and their labels. Uses the mount table and
// the labels of udev(7) only; mount points are never accessed. Any thread.

#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/path_text.h"
#include "platform/posix/mount_table.h"
#include "platform/posix/shell/mount_rules.h"

namespace quorbit {

struct ShellVolume {
    std::string path;   // with trailing separator: "/", "/media/me/stick/", "C:\"
    std::string label;  // display name with the path: "stick (/media/me/stick)"
    VolumeKind kind = VolumeKind::Fixed;
};

// Maps the canonical path of a device to the label of its file system.
using VolumeLabels = std::map<std::string, std::string>;

// Reads the labels that udev(7) creates as links in disk/by-label below deviceFolder. Empty if
// there are none.
[[nodiscard]] VolumeLabels ReadVolumeLabels(const std::string& deviceFolder);

// Returns, sorted by path: the root folder, file systems on block devices, network shares, FUSE
// file systems, and mapped drives. Omits pseudo file systems; mounts at system locations (/boot and
// below, /run except /run/media, ...) or below a hidden folder; a second mount of a listed file
// system; and a mounted part of a listed file system, unless it is a subvolume or a share of its
// own. deviceFolder: the folder of device files, "/dev/".
[[nodiscard]] std::vector<ShellVolume> ListVolumes(const std::vector<MountEntry>& mounts,
                                                   const DriveMap& drives,
                                                   const std::string& deviceFolder);

// Returns the GVfs mount points of the current user; each folder below one is an open share. GVfs
// is the desktop's access to shares, cameras and phones.
[[nodiscard]] std::vector<std::string> ListGvfsFolders(const std::vector<MountEntry>& mounts);

}  // namespace quorbit
