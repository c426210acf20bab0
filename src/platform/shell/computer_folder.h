// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The "My Computer" folder, which contains the drives. Immutable; any thread.

#pragma once

#include <memory>
#include <string>

#include "platform/shell/system_folder.h"

namespace quorbit {

class ComputerFolder final : public SystemFolder {
public:
    using SystemFolder::SystemFolder;

    [[nodiscard]] std::unique_ptr<ShellEnumerator> EnumObjects(std::uint32_t flags,
                                                               std::stop_token stop) const override;

private:
    [[nodiscard]] std::string ParsingNameOf(const ItemIdContent& item) const override;
    [[nodiscard]] std::shared_ptr<const ShellFolder> Bind(const ItemIdContent& item) const override;
};

}  // namespace quorbit
