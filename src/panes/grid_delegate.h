// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws the items of the icon styles in cells of equal size. Individual sizes would require the
// icon of every item. User interface thread only.

#pragma once

#include <QAbstractItemView>

#include "panes/focus_frame.h"

namespace quorbit {

class GridDelegate final : public FocusDelegate {
public:
    using FocusDelegate::FocusDelegate;

    void SetCell(const QSize& cell) { m_cell = cell; }
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        return m_cell;
    }

    // Returns the width in pixels that icon and text need in one line.
    [[nodiscard]] int WidthOf(const QAbstractItemView& view, const QModelIndex& index) const
    {
        QStyleOptionViewItem option;
        option.initFrom(&view);
        const int text = option.fontMetrics.horizontalAdvance(index.data().toString());
        const int margin = 2 * (view.style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
        const bool besideIcon = view.iconSize().width() < m_cell.width() / 2;
        return text + margin + (besideIcon ? view.iconSize().width() + margin : 0);
    }

protected:
    // The model aligns texts for report columns; a name below its icon is centred.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        FocusDelegate::initStyleOption(option, index);
        if (option->decorationPosition == QStyleOptionViewItem::Top) {
            option->displayAlignment = Qt::AlignHCenter | Qt::AlignTop;
        }
    }

private:
    QSize m_cell;
};

}  // namespace quorbit
