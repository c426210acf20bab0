// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the system tells of an item, as find data.

#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/error.h"
#include "platform/find_data.h"

namespace quorbit {

// From st_mode; see inode(7).
[[nodiscard]] ItemKind KindFromMode(mode_t mode);

// Sets kind, size and time.
void FillDetails(const struct stat& details, FindData& item);

// Sets kind, size and time of a name in an open folder. Follows no link and triggers no automount.
Status ReadDetailsAt(int folder, FindData& item);

// Everything about a name in an open folder, links not followed.
Result<struct stat> StatAt(int folder, const std::string& name);

}  // namespace quorbit
