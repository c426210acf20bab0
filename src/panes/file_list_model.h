// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The model of the file list. User interface thread only.

#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <memory>
#include <unordered_map>
#include <vector>

#include "panes/item_icons.h"
#include "platform/shell/shell_list_item.h"

namespace quorbit {

// Rows in some order. `order` points into `portions`, which are immutable and shared, so a copy
// keeps its rows alive.
struct FileRows {
    std::vector<std::shared_ptr<const std::vector<ShellListItem>>> portions;
    std::vector<const ShellListItem*> order;
};

class FileListModel final : public QAbstractTableModel {
public:
    // `icons` must outlive the model.
    explicit FileListModel(const ItemIcons& icons) : m_icons(icons) {}

    void Clear();
    // Appends rows and sets their m_nRow.
    void Append(std::vector<ShellListItem> items);
    // Returns the current rows; a copy keeps them alive.
    [[nodiscard]] const FileRows& Rows() const { return m_rows; }
    // Reorders the rows. `order` is a permutation of an earlier Rows() since the last Clear; rows
    // appended since then stay at the end. Keeps the selection.
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
    mutable std::unordered_map<const ShellListItem*, QIcon> m_drawn;  // icon cache
};

}  // namespace quorbit
