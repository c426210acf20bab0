// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the list of files asks of the tree. User interface thread only.

#pragma once

#include <string>

#include "platform/shell/shell_tree_item.h"

namespace quorbit {

class FolderTree {
public:
    virtual ~FolderTree() = default;
    // The record of the selected node, owned by the tree and valid until control returns to the
    // event loop; null if no node is selected.
    [[nodiscard]] virtual const ShellTreeItem* GetSelectedItemData() const = 0;
    // As shown, UTF-8; empty if no node is selected.
    [[nodiscard]] virtual std::string GetSelectedText() const = 0;
};

}  // namespace quorbit
