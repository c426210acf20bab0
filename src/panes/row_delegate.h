// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws the rows of a report.

#pragma once

#include <QStyledItemDelegate>
#include <vector>

namespace quorbit {

// How a row stands when it is drawn.
struct RowState {
    bool selected = false;
    bool dropTarget = false;
    bool current = false;  // the one that keys start from
    bool listHasFocus = false;
    bool keepsSelection = true;  // a selection shows without the focus, too
    bool fullRow = true;         // the highlight runs along the whole row, not the first text alone
};

// Whether the row is drawn as a selected one.
[[nodiscard]] bool ShowsSelected(const RowState& state);

// Where a cell is, in the coordinates of the painter.
struct RowCell {
    QModelIndex index;
    QRect rect;
};

class RowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // cells: the columns from left to right, the first one with the icon. clientRight: the last
    // pixel that a highlight may reach.
    void PaintRow(QPainter& painter, const QStyleOptionViewItem& option,
                  const std::vector<RowCell>& cells, const RowState& state, int clientRight) const;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

private:
    void PaintCell(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                   const QRect& rect, int margin) const;
};

}  // namespace quorbit
