// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The root of the shell namespace: "My Computer", "Network Neighborhood", then the items of the
// user's desktop folder. Immutable; any thread.

#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/shell/system_folder.h"

namespace quorbit {

class DesktopFolder final : public SystemFolder {
public:
    explicit DesktopFolder(std::shared_ptr<const ShellContext> context);

    // Enumerates My Computer first and Network Neighborhood second, even if the desktop folder
    // cannot be read.
    [[nodiscard]] std::unique_ptr<ShellEnumerator> EnumObjects(std::uint32_t flags,
                                                               std::stop_token stop) const override;
    Result<ItemIdList> ParseDisplayName(std::string_view name) const override;

private:
    [[nodiscard]] std::string ParsingNameOf(const ItemIdContent& item) const override;
    [[nodiscard]] std::shared_ptr<const ShellFolder> Bind(const ItemIdContent& item) const override;
};

// Creates a shell namespace that uses these sources.
[[nodiscard]] ShellFolderPtr MakeDesktopFolder(ShellSources sources);

}  // namespace quorbit
