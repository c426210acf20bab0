// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/row_delegate.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <algorithm>

#include "panes/focus_frame.h"
#include "panes/shorten_text.h"

namespace quorbit {
namespace {

constexpr int kMostCharacters = 259;  // drawn per cell
constexpr int kFirstMargin = 2;       // pixels on each side of the first text
constexpr int kMargin = 6;            // on each side of the other texts

QStyle& StyleOf(const QStyleOptionViewItem& option)
{
    return option.widget != nullptr ? *option.widget->style() : *QApplication::style();
}

QString TextOf(const QModelIndex& index)
{
    return index.data(Qt::DisplayRole).toString().left(kMostCharacters);
}

// The areas of the icon and of the text; the icon's space is reserved even if there is no icon.
QRect IconRect(const QStyleOptionViewItem& option, const QRect& cell)
{
    const int gap = (cell.height() - option.decorationSize.height()) / 2;
    return {QPoint(cell.left() + kFirstMargin, cell.top() + gap), option.decorationSize};
}

QRect LabelRect(const QStyleOptionViewItem& option, const QRect& cell)
{
    QRect label = cell;
    label.setLeft(std::min(IconRect(option, cell).right() + 1 + kFirstMargin, cell.right()));
    return label;
}

void PaintFocus(QPainter& painter, const QStyleOptionViewItem& option, const QRect& rect,
                bool selected)
{
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(option);
    focus.rect = rect;
    focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_HasFocus;
    focus.backgroundColor = option.palette.color(selected ? QPalette::Highlight : QPalette::Base);
    StyleOf(option).drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, option.widget);
}

}  // namespace

bool ShowsSelected(const RowState& state)
{
    return state.dropTarget || (state.selected && (state.listHasFocus || state.keepsSelection));
}

void RowDelegate::PaintRow(QPainter& painter, const QStyleOptionViewItem& option,
                           const std::vector<RowCell>& cells, const RowState& state,
                           int clientRight) const
{
    if (cells.empty()) {
        return;
    }
    const RowCell& first = cells.front();
    const bool selected = ShowsSelected(state);
    const QRect label = LabelRect(option, first.rect);
    QRect highlight = label;
    if (state.fullRow) {
        highlight.setRight(std::max(cells.back().rect.right(), clientRight));
    } else {
        const int width = option.fontMetrics.horizontalAdvance(TextOf(first.index));
        highlight.setWidth(std::min(label.width(), width + 2 * kFirstMargin));
    }
    const bool filled = state.dropTarget || (selected && state.listHasFocus);
    const QColor plain = option.palette.color(QPalette::Text);
    const QColor marked = option.palette.color(QPalette::HighlightedText);
    if (filled) {
        painter.fillRect(highlight, option.palette.brush(QPalette::Highlight));
    } else if (selected) {
        PaintOutlinedSelection(painter, highlight, option.palette);
    }
    if (first.rect.width() > 1) {
        first.index.data(Qt::DecorationRole)
            .value<QIcon>()
            .paint(&painter, IconRect(option, first.rect).intersected(first.rect), Qt::AlignCenter,
                   filled ? QIcon::Selected : QIcon::Normal);
    }
    painter.setPen(filled ? marked : plain);
    PaintCell(painter, option, first.index, label, kFirstMargin);
    painter.setPen(filled && state.fullRow ? marked : plain);
    for (auto cell = cells.begin() + 1; cell != cells.end(); ++cell) {
        PaintCell(painter, option, cell->index, cell->rect, kMargin);
    }
    if (state.current && state.listHasFocus) {
        PaintFocus(painter, option, highlight, filled);
    }
}

void RowDelegate::PaintCell(QPainter& painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index, const QRect& rect, int margin) const
{
    const QString text = TextOf(index);
    if (text.isEmpty()) {
        return;
    }
    const QString shown = ShortenText(
        text, rect.width(), 2 * margin,
        [&option](const QString& part) { return option.fontMetrics.horizontalAdvance(part); });
    const bool shortened = shown.size() != text.size() || shown != text;
    const auto wanted = Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt());
    const Qt::Alignment side = shortened ? Qt::AlignLeft : wanted & Qt::AlignHorizontal_Mask;
    painter.drawText(rect.adjusted(margin, 0, -margin, 0),
                     int(side | Qt::AlignVCenter) | Qt::TextSingleLine | Qt::TextDontClip, shown);
}

bool RowDelegate::IsCut(const QStyleOptionViewItem& option, const RowCell& cell) const
{
    const QString text = cell.index.data(Qt::DisplayRole).toString();
    const bool first = cell.index.column() == 0;
    const int room = (first ? LabelRect(option, cell.rect) : cell.rect).width() -
                     2 * (first ? kFirstMargin : kMargin);
    return text.size() > kMostCharacters || option.fontMetrics.horizontalAdvance(text) > room;
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int width = option.fontMetrics.horizontalAdvance(TextOf(index));
    const bool first = index.column() == 0;
    const int height = std::max(option.fontMetrics.height(), option.decorationSize.height());
    return {first ? option.decorationSize.width() + width + 5 * kFirstMargin : width + 2 * kMargin,
            height + 2 * kFirstMargin};
}

}  // namespace quorbit
