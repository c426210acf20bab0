// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The rows of the list of files. User interface thread only.

#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <cstdint>
#include <optional>
#include <vector>

#include "panes/item_icons.h"
#include "platform/shell/shell_list_item.h"

namespace quorbit {

class FileListModel final : public QAbstractTableModel {
public:
    // icons outlives the model.
    explicit FileListModel(const ItemIcons& icons) : m_icons(icons) {}

    void Clear();
    // Behind the rows that are there; gives each its m_nRow.
    void Append(std::vector<ShellListItem> items);
    // By StandsAbove; rows that are equal there keep their order, and what is selected stays so.
    void Sort(int column);
    // Valid until the next call that changes the rows.
    [[nodiscard]] const ShellListItem& ItemAt(int row) const;
    [[nodiscard]] int RowCount() const { return static_cast<int>(m_rows.size()); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Row {
        ShellListItem item;
        mutable std::optional<QIcon> icon;  // found when the row is first drawn
    };

    [[nodiscard]] const QIcon& IconOf(const Row& row) const;
    void Rearrange(const std::vector<std::uint32_t>& order);

    const ItemIcons& m_icons;
    std::vector<Row> m_rows;
};

}  // namespace quorbit
