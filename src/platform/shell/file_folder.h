// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A folder on a disk, or the root folder of a volume. Immutable; any thread.

#pragma once

#include <memory>
#include <string>

#include "platform/shell/system_folder.h"

namespace quorbit {

class FileFolder final : public SystemFolder {
public:
    // path: absolute, native or of a mapped drive, with trailing separator.
    FileFolder(std::shared_ptr<const ShellContext> context, std::string path);

    [[nodiscard]] std::unique_ptr<ShellEnumerator> EnumObjects(std::uint32_t flags,
                                                               std::stop_token stop) const override;

private:
    [[nodiscard]] std::string ParsingNameOf(const ItemIdContent& item) const override;
    [[nodiscard]] std::shared_ptr<const ShellFolder> Bind(const ItemIdContent& item) const override;

    std::string m_strPath;
};

}  // namespace quorbit
