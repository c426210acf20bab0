// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws the items of the icon styles, all of one size: what an item needs would have to be asked of
// each, and with it the icon.

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
    // The columns of a report have sides; a name below its icon stands in the middle.
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
