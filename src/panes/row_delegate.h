// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws the rows of a ReportView. User interface thread only.

#pragma once

#include <QStyledItemDelegate>
#include <vector>

namespace quorbit {

// State of a row to draw.
struct RowState {
    bool selected = false;
    bool dropTarget = false;
    bool current = false;  // has the keyboard cursor
    bool listHasFocus = false;
    bool keepsSelection = true;  // show the selection even without the focus, outlined
    bool fullRow = true;         // highlight the whole row, not only the first text
};

// Returns true if the row is drawn as selected.
[[nodiscard]] bool ShowsSelected(const RowState& state);

// A cell and its position in painter coordinates.
struct RowCell {
    QModelIndex index;
    QRect rect;
};

class RowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // `cells` are ordered from left to right; the first has the icon. clientRight is the x
    // coordinate of the last pixel of the viewport; a full row highlight extends at least to it.
    void PaintRow(QPainter& painter, const QStyleOptionViewItem& option,
                  const std::vector<RowCell>& cells, const RowState& state, int clientRight) const;

    // Returns true if the cell has no room for its whole text.
    [[nodiscard]] bool IsCut(const QStyleOptionViewItem& option, const RowCell& cell) const;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

private:
    void PaintCell(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                   const QRect& rect, int margin) const;
};

}  // namespace quorbit
