// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Objects sent with the update hints between drive tree and file list.

#pragma once

#include "document/view.h"
#include "platform/shell/shell_list_item.h"
#include "platform/shell/shell_tree_item.h"

namespace quorbit {

// Sent with HINT_FOLDER_SELECTED. The item belongs to the tree.
class TreeItemHint final : public HintObject {
public:
    explicit TreeItemHint(const ShellTreeItem& item) : m_item(item) {}
    [[nodiscard]] const ShellTreeItem& Item() const { return m_item; }

private:
    const ShellTreeItem& m_item;
};

// Sent with HINT_FOLDER_OPENED and HINT_FOLDER_NOT_FOUND. The item belongs to the sender and is
// valid during the call.
class ListItemHint final : public HintObject {
public:
    explicit ListItemHint(const ShellListItem& item) : m_item(item) {}
    [[nodiscard]] const ShellListItem& Item() const { return m_item; }

private:
    const ShellListItem& m_item;
};

}  // namespace quorbit
