// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Converts a parsing name to an absolute item id list. Any thread.

#pragma once

#include <string_view>

#include "platform/error.h"
#include "platform/shell/shell_context.h"

namespace quorbit {

// See ShellFolder::ParseDisplayName. The list of a path goes through Network Neighborhood if the
// path is in a GVfs location, and otherwise through My Computer and the innermost volume that
// contains the path. Missing if its drive is not mapped; Invalid if the path is relative or
// contains "." or "..".
[[nodiscard]] Result<ItemIdList> ParseAbsoluteName(const ShellContext& context,
                                                   std::string_view name);

}  // namespace quorbit
