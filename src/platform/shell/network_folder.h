// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The "Network Neighborhood" folder: network drives, and the locations that the desktop has mounted
// through GVfs. Immutable; any thread.

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

    // Enumerates the network drives first, since listing the GVfs locations may block.
    [[nodiscard]] std::unique_ptr<ShellEnumerator> EnumObjects(std::uint32_t flags,
                                                               std::stop_token stop) const override;

private:
    [[nodiscard]] std::string ParsingNameOf(const ItemIdContent& item) const override;
    [[nodiscard]] std::shared_ptr<const ShellFolder> Bind(const ItemIdContent& item) const override;
};

// Returns true if the folder may contain items. Accesses no mount point.
[[nodiscard]] bool HasNetworkPlaces(const ShellContext& context,
                                    const std::vector<MountEntry>& mounts);

}  // namespace quorbit
