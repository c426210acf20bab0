// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/report_view.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>

namespace quorbit {

ReportView::ReportView(QWidget* parent) : QTreeView(parent)
{
    setItemDelegate(&m_delegate);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(true);
    header()->setHighlightSections(false);
    header()->setStretchLastSection(false);
}

void ReportView::SetFullRow(bool full)
{
    m_bFullRow = full;
    viewport()->update();
}

void ReportView::SetDropRow(int row)
{
    m_nDropRow = row;
    viewport()->update();
}

void ReportView::PutOnTop(const QModelIndex& row)
{
    const int left = horizontalScrollBar()->value();
    scrollTo(row, PositionAtTop);
    horizontalScrollBar()->setValue(left);
}

QModelIndex ReportView::indexAt(const QPoint& point) const
{
    const QModelIndex index = QTreeView::indexAt(point);
    return m_bFullRow || index.column() == 0 ? index : QModelIndex();
}

RowCell ReportView::CutCellAt(const QPoint& point) const
{
    const QModelIndex index = QTreeView::indexAt(point);
    const RowCell cell{index, visualRect(index) & viewport()->rect()};
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    return index.isValid() && m_delegate.IsCut(option, cell) ? cell : RowCell();
}

std::vector<RowCell> ReportView::CellsOf(const QRect& row, const QModelIndex& index) const
{
    std::vector<RowCell> cells;
    for (int place = 0; place < header()->count(); ++place) {
        const int column = header()->logicalIndex(place);
        if (!header()->isSectionHidden(column)) {
            cells.push_back({index.siblingAtColumn(column),
                             QRect(header()->sectionViewportPosition(column), row.top(),
                                   header()->sectionSize(column), row.height())});
        }
    }
    return cells;
}

void ReportView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    RowState state;
    state.selected = selectionModel()->isRowSelected(index.row(), {});
    state.dropTarget = index.row() == m_nDropRow;
    state.current = currentIndex().isValid() && currentIndex().row() == index.row();
    state.listHasFocus = hasFocus();
    // A message about the selected rows must not hide which they are.
    state.keepsSelection = m_bKeepsSelection || QApplication::activeModalWidget() != nullptr;
    state.fullRow = m_bFullRow;
    QStyleOptionViewItem own = option;
    own.palette.setCurrentColorGroup(!isEnabled() ? QPalette::Disabled
                                     : hasFocus() ? QPalette::Active
                                                  : QPalette::Inactive);
    painter->save();
    m_delegate.PaintRow(*painter, own, CellsOf(option.rect, index), state, viewport()->width() - 1);
    painter->restore();
}

}  // namespace quorbit
