// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/focus_frame.h"

#include <QEvent>

#include "look/contrast.h"

namespace quorbit {
namespace {

constexpr int kThickness = 2;  // pixels

QColor FocusColour(const QPalette& palette)
{
    const QColor onBase =
        ReadableOn(palette.color(QPalette::Highlight), palette.color(QPalette::Base));
    return ReadableOn(onBase, palette.color(QPalette::Window));
}

}  // namespace

FocusFrame::FocusFrame(QWidget& pane) : QWidget(&pane)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    pane.installEventFilter(this);
    Place();
}

bool FocusFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == parent()) {
        Place();
    }
    return QWidget::eventFilter(watched, event);
}

void FocusFrame::Place()
{
    setGeometry(parentWidget()->rect());
    // Covers only its edges, so that the view below still scrolls by moving its pixels.
    setMask(QRegion(rect()) - rect().adjusted(kThickness, kThickness, -kThickness, -kThickness));
    raise();
}

void FocusFrame::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), FocusColour(palette()));
}

void PaintOutlinedSelection(QPainter& painter, const QRect& rect, const QPalette& palette)
{
    painter.save();
    painter.setPen(FocusColour(palette));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

void FocusDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const
{
    const bool focus = option.widget == nullptr || option.widget->hasFocus();
    if (focus || (option.state & QStyle::State_Selected) == 0) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem plain = option;
    plain.state &= ~QStyle::State_Selected;
    QStyledItemDelegate::paint(painter, plain, index);
    PaintOutlinedSelection(*painter, option.rect, option.widget->palette());
}

}  // namespace quorbit
