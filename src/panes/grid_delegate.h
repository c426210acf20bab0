// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws the items of the icon styles in cells of equal size. Individual sizes would require the
// icon of every item. User interface thread only.

#pragma once

#include <QStyledItemDelegate>

namespace quorbit {

class GridDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void SetCell(const QSize& cell) { m_cell = cell; }
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        return m_cell;
    }

protected:
    // The model aligns texts for report columns; a name below its icon is centred.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->decorationPosition == QStyleOptionViewItem::Top) {
            option->displayAlignment = Qt::AlignHCenter | Qt::AlignTop;
        }
    }

private:
    QSize m_cell;
};

}  // namespace quorbit
