// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Selects the items that the drive tree shows.

#pragma once

#include "panes/shell_tree.h"

namespace quorbit {

// Accepts folders of the file system and containers of such folders. At the top level, an item
// outside the file system is accepted only if it is the first one or "Network Neighborhood".
[[nodiscard]] TreeVerdict DriveTreeVerdict(const TreeCandidate& item);

}  // namespace quorbit
