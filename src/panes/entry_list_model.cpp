// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/entry_list_model.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quorbit {

EntryListModel::EntryListModel(QIcon deletes, QIcon others)
    : m_deletes(std::move(deletes)), m_others(std::move(others))
{
}

void EntryListModel::SetRows(std::vector<EntryRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

int EntryListModel::SameRows(const std::vector<EntryRow>& others) const
{
    const std::size_t both = std::min(m_rows.size(), others.size());
    int same = 0;
    for (std::size_t row = 0; row < both; ++row) {
        same += m_rows[row] == others[row] ? 1 : 0;
    }
    return same;
}

void EntryListModel::Remove(std::uint32_t nId)
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [nId](const EntryRow& row) { return row.nId == nId; });
    if (found == m_rows.end()) {
        return;
    }
    const int row = static_cast<int>(found - m_rows.begin());
    beginRemoveRows({}, row, row);
    m_rows.erase(found);
    endRemoveRows();
}

const EntryRow& EntryListModel::RowAt(int row) const
{
    return m_rows[static_cast<std::size_t>(row)];
}

int EntryListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int EntryListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kEntryColumns;
}

QVariant EntryListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const EntryRow& row = RowAt(index.row());
    const bool deletes = (row.dwFlags & DCF_DELETE) != 0;
    const bool first = index.column() == kEntrySource;
    switch (role) {
        case Qt::DisplayRole:
            return CellText(row, index.column());
        case Qt::DecorationRole:
            return first ? QVariant(deletes ? m_deletes : m_others) : QVariant();
        case Qt::AccessibleDescriptionRole:
            return first && deletes ? QStringLiteral("Deletes") : QString();
        case Qt::TextAlignmentRole:
            return int(Qt::AlignLeft | Qt::AlignVCenter);
        default:
            return {};
    }
}

QVariant EntryListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static constexpr std::array<const char*, kEntryColumns> kTitles{
        "Source Folder", "Destination Folder", "File Types, Folders, Files",
        "File Types in Folders"};
    if (orientation != Qt::Horizontal || section < 0 || section >= kEntryColumns) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return QString::fromLatin1(kTitles[static_cast<std::size_t>(section)]);
    }
    return role == Qt::TextAlignmentRole ? QVariant(int(Qt::AlignLeft | Qt::AlignVCenter))
                                         : QVariant();
}

}  // namespace quorbit
