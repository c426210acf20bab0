// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Fills find data from stat(2) and statx(2). Any thread.

#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/error.h"
#include "platform/find_data.h"

namespace quorbit {

// Returns the kind for an st_mode; see inode(7).
[[nodiscard]] ItemKind KindFromMode(mode_t mode);

// Sets kind, size, time, identity and links.
void FillDetails(const struct stat& details, FindData& item);

// Sets kind, size, time, identity and links of the item `item.name` in an open folder. Follows no
// links and triggers no automount.
Status ReadDetailsAt(int folder, FindData& item);

// Calls fstatat(2) on a name in an open folder. Follows no links and triggers no automount.
Result<struct stat> StatAt(int folder, const std::string& name);

}  // namespace quorbit
