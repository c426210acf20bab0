// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The rows of the list of entries. User interface thread only.

#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <cstdint>
#include <vector>

#include "panes/entry_row.h"

namespace quorbit {

class EntryListModel final : public QAbstractTableModel {
public:
    // Marks of an entry that deletes, and of every other one.
    EntryListModel(QIcon deletes, QIcon others);

    void SetRows(std::vector<EntryRow> rows);
    // How many of the rows that are there stand at the same place in the others.
    [[nodiscard]] int SameRows(const std::vector<EntryRow>& others) const;
    // Removes the row of that entry; the others stay as they are.
    void Remove(std::uint32_t nId);
    [[nodiscard]] const EntryRow& RowAt(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    QIcon m_deletes;
    QIcon m_others;
    std::vector<EntryRow> m_rows;
};

}  // namespace quorbit
