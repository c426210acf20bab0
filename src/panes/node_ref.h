// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Weak reference to a node of a tree: becomes null when the node is removed. User interface thread
// only.

#pragma once

#include <QPersistentModelIndex>

#include "panes/shell_tree.h"

namespace quorbit {

class NodeRef {
public:
    NodeRef() = default;
    // `node` may be null.
    NodeRef(const ShellTree& tree, const ShellTreeNode* node)
        : m_pTree(&tree), m_place(node != nullptr ? tree.indexFromItem(node) : QModelIndex())
    {
    }

    // Returns null if there is no node or it was removed. The tree must still exist.
    [[nodiscard]] ShellTreeNode* Get() const
    {
        return m_place.isValid() ? NodeOf(m_pTree->itemFromIndex(m_place)) : nullptr;
    }

private:
    const ShellTree* m_pTree = nullptr;
    QPersistentModelIndex m_place;
};

}  // namespace quorbit
