// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/parsing_name.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/path_text.h"
#include "platform/posix/mount_table.h"
#include "platform/shell/item_id_content.h"
#include "platform/shell/shell_pidl.h"

namespace quorbit {

namespace {

// An absolute list, and the rest of the path to append to it.
struct Start {
    ItemIdList list;
    std::string_view rest;
};

ItemIdList Single(ShellItemKind kind, std::string_view name = {})
{
    return MakeItemId({kind, kHasSubfolder, name, {}});
}

// Returns the location below a GVfs mount point that contains the path.
std::optional<Start> InGvfsPlace(const std::vector<MountEntry>& mounts, std::string_view path)
{
    for (const std::string& mountPoint : ListGvfsFolders(mounts)) {
        if (!IsAtOrBelow(path, mountPoint) || path.size() <= mountPoint.size() + 1) {
            continue;
        }
        const std::string_view below = path.substr(mountPoint.size() + 1);
        const std::string_view name = below.substr(0, below.find('/'));
        if (!name.empty()) {
            return Start{CShellPidl::ConcatIdLists(Single(ShellItemKind::Network),
                                                   MakeGvfsId(mountPoint, name)),
                         below.substr(name.size())};
        }
    }
    return std::nullopt;
}

// Returns the innermost volume that contains the path.
std::optional<Start> OnVolume(const std::vector<ShellVolume>& volumes, std::string_view path)
{
    const ShellVolume* best = nullptr;
    for (const ShellVolume& volume : volumes) {
        const std::string_view root = volume.path;
        const bool isIt = path.starts_with(root) || path == root.substr(0, root.size() - 1);
        if (isIt && (best == nullptr || root.size() > best->path.size())) {
            best = &volume;
        }
    }
    if (best == nullptr) {
        return std::nullopt;
    }
    return Start{CShellPidl::ConcatIdLists(Single(ShellItemKind::Computer), MakeVolumeId(*best)),
                 path.substr(std::min(best->path.size(), path.size()))};
}

// Appends the components of the rest. All of them are folders except the last one without a
// trailing separator.
Result<ItemIdList> Descend(Start start, char separator)
{
    std::string_view rest = start.rest;
    while (!rest.empty()) {
        const std::string_view name = rest.substr(0, rest.find(separator));
        const bool isLast = name.size() == rest.size();
        rest.remove_prefix(isLast ? rest.size() : name.size() + 1);
        if (name.empty()) {
            continue;
        }
        const ItemIdList id = Single(isLast ? ShellItemKind::File : ShellItemKind::Folder, name);
        if (!ReadItemId(id)) {
            return Error(ErrorKind::Invalid);
        }
        start.list = CShellPidl::ConcatIdLists(start.list, id);
    }
    return std::move(start.list);
}

// Drive letters are case-insensitive; the ids of drives use upper case.
std::string WithCapitalDrive(std::string_view path)
{
    std::string text(path);
    if (IsDrivePath(path) && text[0] >= 'a' && text[0] <= 'z') {
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
    }
    return text;
}

}  // namespace

Result<ItemIdList> ParseAbsoluteName(const ShellContext& context, std::string_view name)
{
    if (name == kComputerParsingName) {
        return Single(ShellItemKind::Computer);
    }
    if (name == kNetworkParsingName) {
        return Single(ShellItemKind::Network);
    }
    // Shares are not nodes of the tree; the folder that they are mapped to is.
    if (IsSharePath(name)) {
        const std::string native = ToNative(name, context.sources.drives);
        if (native.empty()) {
            return Error(ErrorKind::Missing);
        }
        return ParseAbsoluteName(context, native);
    }
    if (!name.starts_with('/') && !IsDrivePath(name)) {
        return Error(ErrorKind::Invalid);
    }
    const std::string path = WithCapitalDrive(name);
    const std::vector<MountEntry> mounts = context.Mounts();
    const std::vector<ShellVolume> volumes = context.Volumes(mounts);
    auto start = InGvfsPlace(mounts, path);
    if (!start) {
        start = OnVolume(volumes, path);
    }
    if (!start) {
        return Error(ErrorKind::Missing);
    }
    return Descend(std::move(*start), SeparatorOf(path));
}

}  // namespace quorbit
