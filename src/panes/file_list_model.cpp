// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/file_list_model.h"

#include <array>
#include <cstddef>
#include <utility>

#include "panes/file_list_columns.h"

namespace quorbit {

void FileListModel::Clear()
{
    beginResetModel();
    m_drawn.clear();
    m_rows = {};
    endResetModel();
}

void FileListModel::Append(std::vector<ShellListItem> items)
{
    if (items.empty()) {
        return;
    }
    int row = RowCount();
    beginInsertRows({}, row, row + static_cast<int>(items.size()) - 1);
    for (ShellListItem& item : items) {
        item.m_nRow = row++;
    }
    const auto portion = std::make_shared<const std::vector<ShellListItem>>(std::move(items));
    m_rows.portions.push_back(portion);
    for (const ShellListItem& item : *portion) {
        m_rows.order.push_back(&item);
    }
    endInsertRows();
}

void FileListModel::SetOrder(std::vector<const ShellListItem*> order)
{
    const auto later = m_rows.order.begin() + static_cast<std::ptrdiff_t>(order.size());
    order.insert(order.end(), later, m_rows.order.end());
    if (order == m_rows.order) {
        return;
    }
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<int> placeOf(order.size());  // new row, indexed by m_nRow
    for (std::size_t place = 0; place < order.size(); ++place) {
        placeOf[static_cast<std::size_t>(order[place]->m_nRow)] = static_cast<int>(place);
    }
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& index : before) {
        const auto inserted = static_cast<std::size_t>(ItemAt(index.row()).m_nRow);
        after.append(this->index(placeOf[inserted], index.column()));
    }
    m_rows.order = std::move(order);
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

int FileListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : RowCount();
}

int FileListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kFileColumns;
}

// Looks up the icon when a row is first drawn and caches it.
const QIcon& FileListModel::IconOf(const ShellListItem& item) const
{
    const auto found = m_drawn.find(&item);
    return found != m_drawn.end()
               ? found->second
               : m_drawn.emplace(&item, m_icons.IconOf(item.m_pidlItem, false)).first->second;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= RowCount()) {
        return {};
    }
    const ShellListItem& item = ItemAt(index.row());
    switch (role) {
        case Qt::DisplayRole:
            return QString::fromStdString(CellText(item, index.column()));
        case Qt::DecorationRole:
            return index.column() == kFileName ? QVariant(IconOf(item)) : QVariant();
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
