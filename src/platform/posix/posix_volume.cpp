// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/posix_volume.h"

#include <linux/magic.h>
#include <sys/statfs.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <vector>

#include "platform/posix/mount_table.h"
#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

constexpr std::uint32_t kXfs = 0x58465342;

std::uint32_t TypeOf(int folder)
{
    struct statfs details = {};
    const int done = RetryInterrupted([&] { return ::fstatfs(folder, &details); });
    return done == 0 ? static_cast<std::uint32_t>(details.f_type) : 0;
}

// ext4 with auto_da_alloc (the default) writes the content of a file before a rename that replaces
// another file; see ext4(5). btrfs does the same. Files on tmpfs do not survive a crash anyway.
bool OrdersRenames(std::uint32_t type, dev_t device)
{
    if (type != EXT4_SUPER_MAGIC) {
        return type == BTRFS_SUPER_MAGIC || type == TMPFS_MAGIC;
    }
    const Result<std::vector<MountEntry>> mounts = ReadMountTable();
    if (!mounts) {
        return false;
    }
    const auto mount = std::ranges::find_if(*mounts, [&](const MountEntry& entry) {
        return entry.major == major(device) && entry.minor == minor(device);
    });
    return mount != mounts->end() && (mount->type == "ext4" || mount->type == "ext3") &&
           !HasMountOption(mount->superOptions, "noauto_da_alloc") &&
           !HasMountOption(mount->superOptions, "data=writeback");
}

// On these local file systems close(2) reports no errors that write(2) has not reported.
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
        // FAT stores times in units of two seconds.
        volume.keepsEvenSeconds = volume.type == MSDOS_SUPER_MAGIC;
        volume.attributes = MakeAttributeSource(volume.type, folder);
    }
    return volume;
}

}  // namespace quorbit
