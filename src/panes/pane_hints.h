// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What travels with the hints between tree and list of files.

#pragma once

#include "document/view.h"
#include "platform/shell/shell_list_item.h"
#include "platform/shell/shell_tree_item.h"

namespace quorbit {

// With HINT_FOLDER_SELECTED. The item belongs to the tree.
class TreeItemHint final : public HintObject {
public:
    explicit TreeItemHint(const ShellTreeItem& item) : m_item(item) {}
    [[nodiscard]] const ShellTreeItem& Item() const { return m_item; }

private:
    const ShellTreeItem& m_item;
};

// With HINT_FOLDER_OPENED and HINT_FOLDER_NOT_FOUND. The item belongs to the list.
class ListItemHint final : public HintObject {
public:
    explicit ListItemHint(const ShellListItem& item) : m_item(item) {}
    [[nodiscard]] const ShellListItem& Item() const { return m_item; }

private:
    const ShellListItem& m_item;
};

}  // namespace quorbit
