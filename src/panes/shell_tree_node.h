// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A node of a ShellTree. User interface thread only.

#pragma once

#include <QTreeWidgetItem>
#include <memory>
#include <optional>
#include <string>

#include "panes/item_icons.h"
#include "platform/shell/shell_tree_item.h"

namespace quorbit {

class NodeFill;

// State shared by the nodes of one tree. Pointers are not owned.
struct ShellTreeLook {
    const ItemIcons* pIcons = nullptr;
    const QTreeWidgetItem* pSelected = nullptr;     // shown with the open icon
    const QTreeWidgetItem* pHighlighted = nullptr;  // drop target of a drag; may be null
    bool bSortByText = false;                       // otherwise by CompareItemIds
};

class ShellTreeNode final : public QTreeWidgetItem {
public:
    // `text` is the display text, UTF-8. `look` must outlive the node.
    ShellTreeNode(ShellTreeItem item, const std::string& text, const ShellTreeLook& look);
    ~ShellTreeNode() override;
    ShellTreeNode(const ShellTreeNode&) = delete;
    ShellTreeNode& operator=(const ShellTreeNode&) = delete;

    [[nodiscard]] const ShellTreeItem& Item() const { return m_item; }
    // Returns the path of the folder, as bytes, without a trailing separator unless it is a root.
    // Returns nullopt if it has none.
    [[nodiscard]] std::optional<std::string> Path() const;

    // Returns true if the expand mark is shown even without children.
    [[nodiscard]] bool HasMark() const;
    void SetMark(bool mark);

    bool m_bFilled = false;            // its children have been read
    std::unique_ptr<NodeFill> m_fill;  // non-null while they are being read

    // Shows a note behind the text, as long as it is not empty. It is not part of the text.
    void SetNote(const QString& note);
    [[nodiscard]] const QString& Note() const { return m_strNote; }

    [[nodiscard]] QVariant data(int column, int role) const override;
    bool operator<(const QTreeWidgetItem& other) const override;

private:
    ShellTreeItem m_item;
    QString m_strNote;
    const ShellTreeLook& m_look;
};

// Casts an item of a ShellTree to its node; null stays null.
[[nodiscard]] inline ShellTreeNode* NodeOf(QTreeWidgetItem* item)
{
    return static_cast<ShellTreeNode*>(item);
}
[[nodiscard]] inline const ShellTreeNode* NodeOf(const QTreeWidgetItem* item)
{
    return static_cast<const ShellTreeNode*>(item);
}

}  // namespace quorbit
