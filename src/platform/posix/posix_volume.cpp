// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/posix_volume.h"

#include <linux/magic.h>
#include <sys/statfs.h>

#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

constexpr std::uint32_t kXfs = 0x58465342;
constexpr std::uint32_t kBcachefs = 0xca451a4e;

std::uint32_t TypeOf(int folder)
{
    struct statfs details = {};
    const int done = RetryInterrupted([&] { return ::fstatfs(folder, &details); });
    return done == 0 ? static_cast<std::uint32_t>(details.f_type) : 0;
}

// On these local file systems, syncfs(2) returns when all data is on the disk. A network file
// system, or one in user space, may only have been handed the data.
bool SyncsAtOnce(std::uint32_t type)
{
    return type == EXT4_SUPER_MAGIC || type == BTRFS_SUPER_MAGIC || type == kXfs ||
           type == TMPFS_MAGIC;
}

// On these local file systems close(2) reports no errors that write(2) has not reported.
bool CloseTells(std::uint32_t type)
{
    return !SyncsAtOnce(type);
}

// Those on which chattr(1) +F works.
bool CasePerFolder(std::uint32_t type)
{
    return type == EXT4_SUPER_MAGIC || type == F2FS_SUPER_MAGIC || type == TMPFS_MAGIC ||
           type == kBcachefs;
}

}  // namespace

PosixVolume& VolumeTable::Of(dev_t device, int folder)
{
    const auto [position, isNew] = m_volumes.try_emplace(device);
    PosixVolume& volume = position->second;
    if (isNew) {
        volume.device = device;
        volume.type = TypeOf(folder);
        volume.syncsAtOnce = SyncsAtOnce(volume.type);
        volume.closeTells = CloseTells(volume.type);
        volume.casePerFolder = CasePerFolder(volume.type);
        // FAT stores times in units of two seconds.
        volume.keepsEvenSeconds = volume.type == MSDOS_SUPER_MAGIC;
        volume.attributes = MakeAttributeSource(volume.type, folder);
    }
    return volume;
}

}  // namespace quorbit
