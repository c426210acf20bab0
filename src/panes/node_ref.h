// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Remembers a node of a tree for as long as it is there. User interface thread only.

#pragma once

#include <QPersistentModelIndex>

#include "panes/shell_tree.h"

namespace quorbit {

class NodeRef {
public:
    NodeRef() = default;
    // node: null for none.
    NodeRef(const ShellTree& tree, const ShellTreeNode* node)
        : m_pTree(&tree), m_place(node != nullptr ? tree.indexFromItem(node) : QModelIndex())
    {
    }

    // Null if there is none, or none any more. The tree must still be there.
    [[nodiscard]] ShellTreeNode* Get() const
    {
        return m_place.isValid() ? NodeOf(m_pTree->itemFromIndex(m_place)) : nullptr;
    }

private:
    const ShellTree* m_pTree = nullptr;
    QPersistentModelIndex m_place;
};

}  // namespace quorbit
