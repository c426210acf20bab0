// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/shell/mount_rules.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "platform/path_text.h"

namespace quorbit {

namespace {

// File systems of other machines and of the host of a virtual machine. The types of FUSE mounts
// have the prefix "fuse.".
constexpr auto kNetworkTypes = std::to_array<std::string_view>(
    {"9p", "afs", "beegfs", "ceph", "cifs", "coda", "davfs", "glusterfs", "lustre", "ncpfs", "nfs",
     "nfs4", "orangefs", "prl_fs", "smb3", "smbfs", "vboxsf", "virtiofs"});
constexpr auto kNetworkFuseTypes = std::to_array<std::string_view>(
    {"ceph-fuse", "curlftpfs", "davfs", "gcsfuse", "glusterfs", "google-drive-ocamlfuse", "juicefs",
     "rclone", "s3fs", "smbnetfs", "sshfs", "vmhgfs-fuse"});

// FUSE file systems that are used by programs only.
constexpr auto kPseudoFuseTypes = std::to_array<std::string_view>(
    {"gvfsd-fuse", "lxcfs", "portal", "snapfuse", "squashfuse", "squashfuse_ll"});

// Mount points of the system where users keep no files, including the EFI system partition.
constexpr auto kSystemPlaces = std::to_array<std::string_view>(
    {"/boot", "/dev", "/efi", "/etc", "/gnu", "/nix", "/proc", "/run", "/snap", "/sys", "/sysroot",
     "/usr", "/var/lib", "/var/snap"});

template <class List>
bool Contains(const List& list, std::string_view text)
{
    return std::find(list.begin(), list.end(), text) != list.end();
}

// Returns the type after "fuse."; empty for "fuse" alone and any other type.
std::string_view FuseSubtype(const MountEntry& mount)
{
    const std::string_view type = mount.type;
    return type.starts_with("fuse.") ? type.substr(5) : std::string_view();
}

bool IsAtSystemPlace(std::string_view path)
{
    if (IsAtOrBelow(path, "/run/media")) {
        return false;
    }
    return std::any_of(kSystemPlaces.begin(), kSystemPlaces.end(),
                       [path](std::string_view place) { return IsAtOrBelow(path, place); });
}

bool HasDevice(const MountEntry& mount)
{
    // btrfs, bcachefs and FUSE report major number 0 although they use a device; the source of ZFS
    // is a pool.
    return mount.major != 0 || mount.source.starts_with("/dev/") || mount.type == "zfs";
}

bool IsFuse(const MountEntry& mount)
{
    return mount.type == "fuse" || mount.type == "fuseblk" || mount.type.starts_with("fuse.");
}

// Returns true for a direct automount, which is mounted on first access. An indirect automount is
// only a folder of such mount points.
bool IsAutomount(const MountEntry& mount)
{
    return mount.type == "autofs" && HasMountOption(mount.superOptions, "direct");
}

std::string_view AfterUser(std::string_view server)
{
    const std::size_t at = server.rfind('@');
    return at == std::string_view::npos ? server : server.substr(at + 1);
}

// Splits a source into the server and the text after it. The server is empty if there is none.
std::pair<std::string_view, std::string_view> SplitServer(std::string_view source)
{
    const std::size_t scheme = source.find("://");
    if (scheme != std::string_view::npos) {
        source.remove_prefix(scheme + 1);
    }
    if (source.starts_with("//")) {
        source.remove_prefix(2);
        const std::string_view server = source.substr(0, source.find('/'));
        return {AfterUser(server), source.substr(server.size())};
    }
    const std::size_t bracket = source.find("]:");  // an IPv6 address contains colons
    const std::size_t colon = bracket != std::string_view::npos ? bracket + 1 : source.find(':');
    if (colon == std::string_view::npos) {
        return {};
    }
    return {AfterUser(source.substr(0, colon)), source.substr(colon + 1)};
}

}  // namespace

bool IsNetworkMount(const MountEntry& mount)
{
    return Contains(kNetworkTypes, mount.type) || Contains(kNetworkFuseTypes, FuseSubtype(mount));
}

bool IsDriveMount(const MountEntry& mount)
{
    if (mount.mountPoint == "/") {
        return true;
    }
    // The kernel appends "//deleted" to a mount point that was deleted.
    const bool gone = mount.mountPoint.ends_with("//deleted");
    const bool hidden = mount.mountPoint.find("/.") != std::string::npos;
    if (gone || hidden || IsAtSystemPlace(mount.mountPoint) ||
        Contains(kPseudoFuseTypes, FuseSubtype(mount))) {
        return false;
    }
    return IsNetworkMount(mount) || IsFuse(mount) || IsAutomount(mount) || HasDevice(mount);
}

VolumeKind KindOfMount(const MountEntry& mount)
{
    if (IsNetworkMount(mount)) {
        return VolumeKind::Network;
    }
    if (mount.type == "iso9660" || mount.type == "udf") {
        return VolumeKind::Optical;
    }
    const bool removable =
        IsAtOrBelow(mount.mountPoint, "/media") || IsAtOrBelow(mount.mountPoint, "/run/media");
    return removable ? VolumeKind::Removable : VolumeKind::Fixed;
}

std::string ShareName(std::string_view source)
{
    const auto [server, path] = SplitServer(source);
    if (server.empty()) {
        return {};
    }
    const std::string share = SplitLast(path).second;
    return share.empty() ? std::string(server) : share + " on " + std::string(server);
}

}  // namespace quorbit
