// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// "Network Neighborhood": network drives, and the places that the desktop has opened through GVfs.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/posix/mount_table.h"
#include "platform/shell/system_folder.h"

namespace quorbit {

class NetworkFolder final : public SystemFolder {
public:
    using SystemFolder::SystemFolder;

    // The network drives come first: GVfs has to be asked for its places.
    [[nodiscard]] std::unique_ptr<ShellEnumerator> EnumObjects(std::uint32_t flags,
                                                               std::stop_token stop) const override;

private:
    [[nodiscard]] std::string ParsingNameOf(const ItemIdContent& item) const override;
    [[nodiscard]] std::shared_ptr<const ShellFolder> Bind(const ItemIdContent& item) const override;
};

// Whether there may be anything in it.
[[nodiscard]] bool HasNetworkPlaces(const ShellContext& context,
                                    const std::vector<MountEntry>& mounts);

}  // namespace quorbit
