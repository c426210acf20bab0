// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/network_folder.h"

#include <algorithm>
#include <utility>

#include "platform/file_system.h"
#include "platform/native.h"
#include "platform/shell/file_folder.h"
#include "platform/shell/list_enumerator.h"
#include "platform/shell/shell_constants.h"

namespace quorbit {

namespace {

std::vector<ItemIdList> NetworkDrives(const ShellContext& context)
{
    std::vector<ItemIdList> ids;
    for (const ShellVolume& volume : context.Volumes(context.Mounts())) {
        if (volume.kind == VolumeKind::Network) {
            ids.push_back(MakeVolumeId(volume));
        }
    }
    return ids;
}

void AddPlaces(const std::string& mountPoint, std::vector<ItemIdList>& ids)
{
    const auto files = MakeFileSystem();
    const auto folder = files->OpenFolder(mountPoint);
    if (!folder) {
        return;
    }
    const auto listing = files->List(**folder);
    if (!listing) {
        return;
    }
    FindData item;
    for (auto more = (*listing)->Next(item); more && *more; more = (*listing)->Next(item)) {
        ids.push_back(MakeGvfsId(mountPoint, item.name));
    }
}

std::vector<ItemIdList> GvfsPlaces(const ShellContext& context)
{
    std::vector<ItemIdList> ids;
    for (const std::string& mountPoint : ListGvfsFolders(context.Mounts())) {
        AddPlaces(mountPoint, ids);
    }
    return ids;
}

}  // namespace

std::unique_ptr<ShellEnumerator> NetworkFolder::EnumObjects(std::uint32_t flags,
                                                            std::stop_token) const
{
    if ((flags & SHCONTF_FOLDERS) == 0) {
        return std::make_unique<ListEnumerator>([] { return std::vector<ItemIdList>(); });
    }
    auto places =
        std::make_unique<ListEnumerator>([context = Context()] { return GvfsPlaces(*context); });
    return std::make_unique<ListEnumerator>(
        [context = Context()] { return NetworkDrives(*context); }, std::move(places));
}

std::string NetworkFolder::ParsingNameOf(const ItemIdContent& item) const
{
    return item.kind == ShellItemKind::Volume ? std::string(item.name) : std::string();
}

std::shared_ptr<const ShellFolder> NetworkFolder::Bind(const ItemIdContent& item) const
{
    return item.kind == ShellItemKind::Volume
               ? std::make_shared<const FileFolder>(Context(), std::string(item.name))
               : nullptr;
}

bool HasNetworkPlaces(const ShellContext& context, const std::vector<MountEntry>& mounts)
{
    const auto volumes = context.Volumes(mounts);
    return !ListGvfsFolders(mounts).empty() ||
           std::any_of(volumes.begin(), volumes.end(), [](const ShellVolume& volume) {
               return volume.kind == VolumeKind::Network;
           });
}

}  // namespace quorbit
