// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix_volume.h"

#include <linux/magic.h>
#include <sys/statfs.h>
#include <sys/sysmacros.h>

#include <fstream>
#include <sstream>
#include <string>

#include "platform/system_call.h"

namespace quorbit {

namespace {

constexpr std::uint32_t kXfs = 0x58465342;

std::uint32_t TypeOf(int folder)
{
    struct statfs details = {};
    const int done = RetryInterrupted([&] { return ::fstatfs(folder, &details); });
    return done == 0 ? static_cast<std::uint32_t>(details.f_type) : 0;
}

// The mount options of a device, see proc(5) "mountinfo"; empty if they could not be told.
std::string MountOptions(dev_t device)
{
    const std::string wanted = std::to_string(major(device)) + ":" + std::to_string(minor(device));
    std::ifstream mounts("/proc/self/mountinfo");
    for (std::string line; std::getline(mounts, line);) {
        std::istringstream fields(line);
        std::string id, parent, number;
        fields >> id >> parent >> number;
        const std::size_t separator = line.find(" - ");
        if (number == wanted && separator != std::string::npos) {
            std::istringstream rest(line.substr(separator + 3));
            std::string type, source, options;
            rest >> type >> source >> options;
            return type + "," + options + ",";
        }
    }
    return {};
}

// ext4 writes the content of a file that replaces another before the rename, unless it was told not
// to. btrfs does, and what tmpfs holds is lost anyway.
bool OrdersRenames(std::uint32_t type, dev_t device)
{
    if (type != EXT4_SUPER_MAGIC) {
        return type == BTRFS_SUPER_MAGIC || type == TMPFS_MAGIC;
    }
    const std::string options = MountOptions(device);
    const bool hasJournal = options.starts_with("ext4,") || options.starts_with("ext3,");
    return hasJournal && options.find(",noauto_da_alloc,") == std::string::npos &&
           options.find(",data=writeback,") == std::string::npos;
}

// On file systems of this machine a close(2) has nothing to tell that a write has not told.
bool CloseTells(std::uint32_t type)
{
    return type != EXT4_SUPER_MAGIC && type != BTRFS_SUPER_MAGIC && type != TMPFS_MAGIC &&
           type != kXfs;
}

}  // namespace

PosixVolume& VolumeTable::Of(dev_t device, int folder)
{
    const auto [position, isNew] = m_volumes.try_emplace(device);
    PosixVolume& volume = position->second;
    if (isNew) {
        volume.device = device;
        volume.type = TypeOf(folder);
        volume.ordersRenames = OrdersRenames(volume.type, device);
        volume.closeTells = CloseTells(volume.type);
        volume.keepsEvenSeconds = volume.type == MSDOS_SUPER_MAGIC;
        volume.attributes = MakeAttributeSource(volume.type, folder);
    }
    return volume;
}

}  // namespace quorbit
