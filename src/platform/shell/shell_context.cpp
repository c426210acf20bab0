// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/shell_context.h"

#include <utility>

#include "platform/posix/shell/gvfs_name.h"
#include "platform/shell/item_id_content.h"

namespace quorbit {

ShellContext::ShellContext(ShellSources from) : sources(std::move(from)) {}

std::vector<MountEntry> ShellContext::Mounts() const
{
    auto mounts = sources.readMounts();
    return mounts ? std::move(*mounts) : std::vector<MountEntry>();
}

std::vector<ShellVolume> ShellContext::Volumes(const std::vector<MountEntry>& mounts) const
{
    return ListVolumes(mounts, sources.drives, sources.deviceFolder);
}

ItemIdList MakeVolumeId(const ShellVolume& volume)
{
    return MakeItemId(
        {ShellItemKind::Volume, static_cast<std::uint8_t>(volume.kind), volume.path, volume.label});
}

ItemIdList MakeGvfsId(const std::string& mountPoint, std::string_view name)
{
    return MakeVolumeId(
        {WithSeparator(mountPoint).append(name) + '/', GvfsLabel(name), VolumeKind::Network});
}

}  // namespace quorbit
