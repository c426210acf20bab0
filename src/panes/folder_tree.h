// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Interface of the drive tree for the file list. User interface thread only.

#pragma once

#include <string>

#include "platform/shell/shell_tree_item.h"

namespace quorbit {

class FolderTree {
public:
    virtual ~FolderTree() = default;
    // Returns the record of the selected node, or null if no node is selected. Owned by the tree;
    // valid until control returns to the event loop.
    [[nodiscard]] virtual const ShellTreeItem* GetSelectedItemData() const = 0;
    // Returns the text of the selected node, UTF-8, or an empty string if no node is selected.
    [[nodiscard]] virtual std::string GetSelectedText() const = 0;
};

}  // namespace quorbit
