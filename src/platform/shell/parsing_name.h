// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// From a parsing name to an absolute item id list.

#pragma once

#include <string_view>

#include "platform/error.h"
#include "platform/shell/shell_context.h"

namespace quorbit {

// See ShellFolder::ParseDisplayName. A path leads through My Computer by the innermost volume that
// it lies on, and through Network Neighborhood if it lies in a GVfs place. Missing if its drive is
// not mapped.
[[nodiscard]] Result<ItemIdList> ParseAbsoluteName(const ShellContext& context,
                                                   std::string_view name);

}  // namespace quorbit
