// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The rows of the list of files. User interface thread only.

#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <memory>
#include <unordered_map>
#include <vector>

#include "panes/item_icons.h"
#include "platform/shell/shell_list_item.h"

namespace quorbit {

// Rows in some order, and what they point into, which never changes.
struct FileRows {
    std::vector<std::shared_ptr<const std::vector<ShellListItem>>> portions;
    std::vector<const ShellListItem*> order;
};

class FileListModel final : public QAbstractTableModel {
public:
    // icons outlives the model.
    explicit FileListModel(const ItemIcons& icons) : m_icons(icons) {}

    void Clear();
    // Behind the rows that are there; gives each its m_nRow.
    void Append(std::vector<ShellListItem> items);
    // The rows that are there; they stay alive as long as the copy does.
    [[nodiscard]] const FileRows& Rows() const { return m_rows; }
    // Rows() as they were a while ago, since the last Clear, in another order. Rows that came since
    // stay behind them. What is selected stays so.
    void SetOrder(std::vector<const ShellListItem*> order);
    // Valid until Clear.
    [[nodiscard]] const ShellListItem& ItemAt(int row) const
    {
        return *m_rows.order[static_cast<std::size_t>(row)];
    }
    [[nodiscard]] int RowCount() const { return static_cast<int>(m_rows.order.size()); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    [[nodiscard]] const QIcon& IconOf(const ShellListItem& item) const;

    const ItemIcons& m_icons;
    FileRows m_rows;
    mutable std::unordered_map<const ShellListItem*, QIcon> m_drawn;  // icons found so far
};

}  // namespace quorbit
