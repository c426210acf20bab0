// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What of the shell namespace the tree of the main window shows.

#pragma once

#include "panes/shell_tree.h"

namespace quorbit {

// Folders that hold files. At the top level those without a path only if they come first or are
// "Network Neighborhood".
[[nodiscard]] TreeVerdict DriveTreeVerdict(const TreeCandidate& item);

}  // namespace quorbit
