// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Objects sent with the update hints between drive tree and file list.

#pragma once

#include <string>
#include <utility>

#include "document/view.h"
#include "platform/shell/shell_list_item.h"
#include "platform/shell/shell_tree_item.h"

namespace quorbit {

// Sent with HINT_FOLDER_SELECTED. The item belongs to the tree and is valid during the call.
class TreeItemHint final : public HintObject {
public:
    // `text` is the text of the node in the tree, UTF-8.
    TreeItemHint(const ShellTreeItem& item, std::string text)
        : m_item(item), m_strText(std::move(text))
    {
    }
    [[nodiscard]] const ShellTreeItem& Item() const { return m_item; }
    [[nodiscard]] const std::string& Text() const { return m_strText; }

private:
    const ShellTreeItem& m_item;
    std::string m_strText;
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
