// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/file_list_model.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <utility>

#include "panes/file_list_columns.h"

namespace quorbit {

void FileListModel::Clear()
{
    beginResetModel();
    m_rows.clear();
    endResetModel();
}

void FileListModel::Append(std::vector<ShellListItem> items)
{
    if (items.empty()) {
        return;
    }
    const int first = RowCount();
    beginInsertRows({}, first, first + static_cast<int>(items.size()) - 1);
    for (ShellListItem& item : items) {
        item.m_nRow = RowCount();
        m_rows.push_back({std::move(item), std::nullopt});
    }
    endInsertRows();
}

void FileListModel::Sort(int column)
{
    std::vector<std::uint32_t> order(m_rows.size());
    std::iota(order.begin(), order.end(), 0U);
    const auto above = [&](std::uint32_t first, std::uint32_t second) {
        return StandsAbove(m_rows[first].item, m_rows[second].item, column);
    };
    if (std::is_sorted(order.begin(), order.end(), above)) {
        return;
    }
    std::stable_sort(order.begin(), order.end(), above);
    Rearrange(order);
}

// order: at each place the row that comes there.
void FileListModel::Rearrange(const std::vector<std::uint32_t>& order)
{
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<Row> sorted;
    sorted.reserve(m_rows.size());
    std::vector<int> placeOf(m_rows.size());
    for (const std::uint32_t from : order) {
        placeOf[from] = static_cast<int>(sorted.size());
        sorted.push_back(std::move(m_rows[from]));
    }
    m_rows = std::move(sorted);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    std::transform(
        before.begin(), before.end(), std::back_inserter(after), [&](const QModelIndex& index) {
            return this->index(placeOf[static_cast<std::size_t>(index.row())], index.column());
        });
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

const ShellListItem& FileListModel::ItemAt(int row) const
{
    return m_rows[static_cast<std::size_t>(row)].item;
}

int FileListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : RowCount();
}

int FileListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kFileColumns;
}

const QIcon& FileListModel::IconOf(const Row& row) const
{
    if (!row.icon) {
        row.icon = m_icons.IconOf(row.item.m_pidlItem, false);
    }
    return *row.icon;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= RowCount()) {
        return {};
    }
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
        case Qt::DisplayRole:
            return QString::fromStdString(CellText(row.item, index.column()));
        case Qt::DecorationRole:
            return index.column() == kFileName ? QVariant(IconOf(row)) : QVariant();
        case Qt::TextAlignmentRole:
            return index.column() == kFileSize ? int(Qt::AlignRight | Qt::AlignVCenter)
                                               : int(Qt::AlignLeft | Qt::AlignVCenter);
        default:
            return {};
    }
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static constexpr std::array<const char*, kFileColumns> kTitles{"Name", "Size", "Type",
                                                                   "Modified", "Attributes"};
    if (orientation != Qt::Horizontal || section < 0 || section >= kFileColumns) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return QString::fromLatin1(kTitles[static_cast<std::size_t>(section)]);
    }
    if (role == Qt::TextAlignmentRole) {
        return section == kFileSize ? int(Qt::AlignRight | Qt::AlignVCenter)
                                    : int(Qt::AlignLeft | Qt::AlignVCenter);
    }
    return {};
}

Qt::ItemFlags FileListModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled |
                                 Qt::ItemNeverHasChildren
                           : Qt::NoItemFlags;
}

}  // namespace quorbit
