// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/path_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace quorbit {

PathLabel::PathLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

// The width is up to the layout: a new path must not resize the window.
QSize PathLabel::sizeHint() const
{
    const QMargins margins = contentsMargins();
    return {0, fontMetrics().height() + margins.top() + margins.bottom()};
}

QSize PathLabel::minimumSizeHint() const
{
    return sizeHint();
}

// Rich text wraps; zero-width spaces allow breaks after separators.
QString PathLabel::ToolTip() const
{
    QString path = text().toHtmlEscaped();
    path.replace(u'/', QStringLiteral("/&#8203;")).replace(u'\\', QStringLiteral("\\&#8203;"));
    return QStringLiteral("<qt>%1</qt>").arg(path);
}

QString PathLabel::Shown() const
{
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
}

bool PathLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) {
        return QLabel::event(event);
    }
    if (Shown() != text()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), ToolTip(), this);
    } else {
        QToolTip::hideText();
    }
    return true;
}

void PathLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(),
                          static_cast<int>(Qt::AlignVCenter | Qt::AlignLeft), palette(),
                          isEnabled(), Shown(), foregroundRole());
}

}  // namespace quorbit
