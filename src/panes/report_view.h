// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A list in report style that draws whole rows. User interface thread only.

#pragma once

#include <QTreeView>

#include "panes/row_delegate.h"

namespace quorbit {

class ReportView final : public QTreeView {
public:
    explicit ReportView(QWidget* parent);

    // Sets whether the whole row or only the first cell is highlighted and responds to the mouse.
    void SetFullRow(bool full);
    [[nodiscard]] bool FullRow() const { return m_bFullRow; }
    // Sets whether the selection is visible while the list does not have the focus.
    void SetKeepsSelection(bool keeps) { m_bKeepsSelection = keeps; }
    // Highlights a row as the drop target of a drag; -1 for none.
    void SetDropRow(int row);

    // Returns the top visible row, or an invalid index if there is none.
    [[nodiscard]] QModelIndex TopRow() const { return QTreeView::indexAt({}); }
    // Scrolls vertically so that the row is at the top, or as near as the scroll range allows.
    void PutOnTop(const QModelIndex& row);

    // Returns the visible part of the cell at a position if its text is cut, by the column or the
    // edge of the viewport; else an invalid cell.
    [[nodiscard]] RowCell CutCellAt(const QPoint& point) const;

    // Returns an invalid index outside the first cell, unless full rows are on.
    [[nodiscard]] QModelIndex indexAt(const QPoint& point) const override;

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;

private:
    [[nodiscard]] std::vector<RowCell> CellsOf(const QRect& row, const QModelIndex& index) const;

    RowDelegate m_delegate;
    bool m_bFullRow = true;
    bool m_bKeepsSelection = true;
    int m_nDropRow = -1;
};

}  // namespace quorbit
