// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/shell/volume_list.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/posix/file_io.h"
#include "platform/posix/posix_listing.h"

namespace quorbit {

namespace {

std::string CanonicalPath(const std::string& path)
{
    std::array<char, PATH_MAX> buffer{};
    return ::realpath(path.c_str(), buffer.data()) != nullptr ? std::string(buffer.data())
                                                              : std::string();
}

int HexDigit(char c)
{
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

// udev encodes characters that are unsafe in a file name as \x20.
std::string DecodeLabel(std::string_view name)
{
    std::string label;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool escaped = name.substr(i).starts_with("\\x") && i + 3 < name.size() &&
                             HexDigit(name[i + 2]) >= 0 && HexDigit(name[i + 3]) >= 0;
        label += escaped ? static_cast<char>(HexDigit(name[i + 2]) * 16 + HexDigit(name[i + 3]))
                         : name[i];
        i += escaped ? 3 : 0;
    }
    return label;
}

std::string LabelOf(const MountEntry& mount, const VolumeLabels& labels,
                    const std::string& deviceFolder)
{
    if (labels.empty() || !mount.source.starts_with(deviceFolder)) {
        return {};
    }
    const auto found = labels.find(CanonicalPath(mount.source));
    return found != labels.end() ? found->second : std::string();
}

std::string LastComponent(std::string_view path)
{
    std::string name = SplitLast(path).second;
    return name.empty() ? VolumeName(path) : name;
}

// Returns "docs on server" for a share; otherwise the label of the file system or, if it has none,
// the name of the folder.
std::string VolumeTitle(const MountEntry& mount, const VolumeLabels& labels,
                        const std::string& deviceFolder)
{
    if (IsNetworkMount(mount)) {
        std::string share = ShareName(mount.source);
        return share.empty() ? LastComponent(mount.mountPoint) : share;
    }
    std::string label = LabelOf(mount, labels, deviceFolder);
    return label.empty() ? LastComponent(mount.mountPoint) : label;
}

std::string WithPath(const std::string& title, const std::string& path)
{
    return Printable(title + " (" + path + ")");
}

// Returns true if all content of a mount is also visible through another one.
bool IsCovered(const MountEntry& mount, const MountEntry& by)
{
    if (mount.major != by.major || mount.minor != by.minor) {
        return false;
    }
    if (IsNetworkMount(mount)) {
        return mount.root == by.root && mount.source == by.source;
    }
    // A btrfs mount shows a subvolume, which users regard as a separate file system.
    return mount.type == "btrfs" ? mount.root == by.root : IsAtOrBelow(mount.root, by.root);
}

// Returns the mounts that are drives, each content once. Prefers the root folder, then the mount
// that shows the largest part of the file system.
std::vector<const MountEntry*> ChooseDrives(const std::vector<MountEntry>& visible)
{
    std::vector<const MountEntry*> candidates;
    for (const MountEntry& mount : visible) {
        if (IsDriveMount(mount)) {
            candidates.push_back(&mount);
        }
    }
    std::stable_sort(candidates.begin(), candidates.end(), [](const auto* a, const auto* b) {
        const bool aIsRoot = a->mountPoint == "/";
        const bool bIsRoot = b->mountPoint == "/";
        return aIsRoot != bIsRoot ? aIsRoot : a->root.size() < b->root.size();
    });
    std::vector<const MountEntry*> chosen;
    for (const MountEntry* mount : candidates) {
        if (std::none_of(chosen.begin(), chosen.end(),
                         [&](const auto* other) { return IsCovered(*mount, *other); })) {
            chosen.push_back(mount);
        }
    }
    return chosen;
}

ShellVolume MappedDrive(const std::string& drive, const std::string& folder,
                        const std::vector<MountEntry>& visible)
{
    const MountEntry* mount = MountOf(visible, folder);
    return {drive + '\\', WithPath(LastComponent(folder), drive),
            mount != nullptr ? KindOfMount(*mount) : VolumeKind::Fixed};
}

}  // namespace

VolumeLabels ReadVolumeLabels(const std::string& deviceFolder)
{
    VolumeLabels labels;
    const std::string folder = deviceFolder + "disk/by-label/";
    auto descriptor = OpenPath(folder, O_RDONLY | O_DIRECTORY);
    if (!descriptor) {
        return labels;
    }
    PosixListing listing(std::make_shared<const UniqueFd>(std::move(*descriptor)));
    FindData item;
    for (auto more = listing.Next(item); more && *more; more = listing.Next(item)) {
        if (const std::string device = CanonicalPath(folder + item.name); !device.empty()) {
            labels[device] = DecodeLabel(item.name);
        }
    }
    return labels;
}

std::vector<ShellVolume> ListVolumes(const std::vector<MountEntry>& mounts, const DriveMap& drives,
                                     const std::string& deviceFolder)
{
    const std::vector<MountEntry> visible = VisibleMounts(mounts);
    const VolumeLabels labels = ReadVolumeLabels(deviceFolder);
    std::vector<ShellVolume> volumes;
    for (const MountEntry* mount : ChooseDrives(visible)) {
        volumes.push_back({WithSeparator(mount->mountPoint),
                           WithPath(VolumeTitle(*mount, labels, deviceFolder), mount->mountPoint),
                           KindOfMount(*mount)});
    }
    // Always list the root folder, even if the mount table is not readable.
    if (volumes.empty() || volumes.front().path != "/") {
        volumes.push_back({"/", WithPath(VolumeName("/"), "/"), VolumeKind::Fixed});
    }
    for (const auto& [drive, folder] : drives) {
        if (IsDrivePath(drive) && MapPath(drive, drives)) {
            volumes.push_back(MappedDrive(drive, folder, visible));
        }
    }
    std::sort(volumes.begin(), volumes.end(),
              [](const ShellVolume& a, const ShellVolume& b) { return a.path < b.path; });
    return volumes;
}

std::vector<std::string> ListGvfsFolders(const std::vector<MountEntry>& mounts)
{
    const std::string ours = "user_id=" + std::to_string(::getuid());
    std::vector<std::string> folders;
    for (const MountEntry& mount : VisibleMounts(mounts)) {
        if (mount.type == "fuse.gvfsd-fuse" && HasMountOption(mount.superOptions, ours)) {
            folders.push_back(mount.mountPoint);
        }
    }
    return folders;
}

}  // namespace quorbit
