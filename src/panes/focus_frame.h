// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Shows which pane has the focus, because the Delete command acts on that pane: a frame around the
// pane, and selections that are filled with the focus and outlined without. The colours have a
// contrast of at least 3 to 1 to what they replace (WCAG 2.1, 1.4.11). User interface thread only.

#pragma once

#include <QPainter>
#include <QStyledItemDelegate>
#include <QWidget>

namespace quorbit {

// A frame over the edges of a pane; hidden at first. The mouse does not reach it.
class FocusFrame final : public QWidget {
public:
    // `pane` owns the frame.
    explicit FocusFrame(QWidget& pane);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Place();
};

// Draws the selection of a view without the focus.
void PaintOutlinedSelection(QPainter& painter, const QRect& rect, const QPalette& palette);

// Draws selected items outlined while the view does not have the focus.
class FocusDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

}  // namespace quorbit
