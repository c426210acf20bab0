// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The model of the entry list. User interface thread only.

#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <cstdint>
#include <vector>

#include "panes/entry_row.h"

namespace quorbit {

class EntryListModel final : public QAbstractTableModel {
public:
    // Icons of delete entries and of all other entries.
    EntryListModel(QIcon deletes, QIcon others);

    void SetRows(std::vector<EntryRow> rows);
    // Returns the number of rows that are equal to the row at the same position in `others`.
    [[nodiscard]] int SameRows(const std::vector<EntryRow>& others) const;
    // Removes the row of an entry, if there is one.
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
