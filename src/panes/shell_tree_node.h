// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A node of a tree of the shell namespace. User interface thread only.

#pragma once

#include <QTreeWidgetItem>
#include <memory>
#include <optional>
#include <string>

#include "panes/item_icons.h"
#include "platform/shell/shell_tree_item.h"

namespace quorbit {

class NodeFill;

// What the nodes of one tree have in common. Nothing is owned.
struct ShellTreeLook {
    const ItemIcons* pIcons = nullptr;
    const QTreeWidgetItem* pSelected = nullptr;     // has its open icon
    const QTreeWidgetItem* pHighlighted = nullptr;  // the target of a drag; may be null
    bool bSortByText = false;                       // else by CompareItemIds
};

class ShellTreeNode final : public QTreeWidgetItem {
public:
    // text: as shown, UTF-8. look outlives the node.
    ShellTreeNode(ShellTreeItem item, const std::string& text, const ShellTreeLook& look);
    ~ShellTreeNode() override;
    ShellTreeNode(const ShellTreeNode&) = delete;
    ShellTreeNode& operator=(const ShellTreeNode&) = delete;

    [[nodiscard]] const ShellTreeItem& Item() const { return m_item; }
    // Path of the folder, as bytes, without closing separator unless it is a root. Nothing if it
    // has none.
    [[nodiscard]] std::optional<std::string> Path() const;

    // Whether the mark for expanding shows though there may be no children yet.
    [[nodiscard]] bool HasMark() const;
    void SetMark(bool mark);

    bool m_bFilled = false;            // its children have been read
    std::unique_ptr<NodeFill> m_fill;  // while they are being read

    [[nodiscard]] QVariant data(int column, int role) const override;
    bool operator<(const QTreeWidgetItem& other) const override;

private:
    ShellTreeItem m_item;
    const ShellTreeLook& m_look;
};

// The node that an item of such a tree is; null for null.
[[nodiscard]] inline ShellTreeNode* NodeOf(QTreeWidgetItem* item)
{
    return static_cast<ShellTreeNode*>(item);
}
[[nodiscard]] inline const ShellTreeNode* NodeOf(const QTreeWidgetItem* item)
{
    return static_cast<const ShellTreeNode*>(item);
}

}  // namespace quorbit
