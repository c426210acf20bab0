// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A folder for copies that have a name before they are placed. Only its owner can enter it, so the
// copies in it get their permissions at once, and one flock(2) on it, instead of one on each copy,
// tells a sweep that its run is alive.

#pragma once

#include <memory>
#include <string>

#include "platform/posix/posix_folder.h"

namespace quorbit {

class PosixStagingFolder final : public PosixFolder {
public:
    static Result<std::unique_ptr<Folder>> Create(const PosixFolder& parent);
    // Removes the folder, which must be empty.
    ~PosixStagingFolder() override;

    [[nodiscard]] bool IsPrivate() const override { return true; }

private:
    PosixStagingFolder(UniqueFd descriptor, const struct stat& details, const PosixFolder& parent,
                       std::string name);

    std::shared_ptr<const UniqueFd> m_parent;
    std::string m_strName;
};

}  // namespace quorbit
