// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Where a copy is placed, and whether it may replace what is there. Any thread.

#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/posix/posix_folder.h"

namespace quorbit {

struct Placement {
    const PosixFolder& folder;  // not owned, as the rest
    const std::string& name;
    const CopyOptions& options;
    // Identity of the source file.
    dev_t sourceDevice = 0;
    ino_t sourceInode = 0;

    // Returns true if the name exists. Fails if that item must not be replaced.
    [[nodiscard]] Result<bool> Check() const;

private:
    [[nodiscard]] Result<bool> IsReadOnly(const struct stat& details) const;
};

// Returns true if the details are those of an item that was examined before.
[[nodiscard]] bool IsSameItem(const struct stat& details, const FindData& item);

}  // namespace quorbit
