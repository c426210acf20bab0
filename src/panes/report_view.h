// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A list in report style whose rows are drawn as a whole.

#pragma once

#include <QTreeView>

#include "panes/row_delegate.h"

namespace quorbit {

class ReportView final : public QTreeView {
public:
    explicit ReportView(QWidget* parent);

    // Whether the highlight, and what counts as a hit, is the whole row or the first cell alone.
    void SetFullRow(bool full);
    [[nodiscard]] bool FullRow() const { return m_bFullRow; }
    // Whether a selection shows while the list lacks the focus.
    void SetKeepsSelection(bool keeps) { m_bKeepsSelection = keeps; }
    // The row that something dragged would land on; -1 for none.
    void SetDropRow(int row);

    // The row at the upper edge; invalid if there is none.
    [[nodiscard]] QModelIndex TopRow() const { return QTreeView::indexAt({}); }
    // Scrolls up or down until the row is there, or none comes below.
    void PutOnTop(const QModelIndex& row);

    // Nothing beside the first cell, unless the whole row counts.
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
