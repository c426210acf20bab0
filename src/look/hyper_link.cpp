// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/hyper_link.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QTextDocument>

#include "look/contrast.h"

namespace quorbit {

QRect CutToText(const QRect& place, const QSize& text, Qt::Alignment alignment)
{
    QRect cut(place.topLeft(), text);
    if (alignment & Qt::AlignVCenter) {
        cut.moveTop(place.top() + (place.height() - text.height()) / 2);
    }
    if (alignment & Qt::AlignHCenter) {
        cut.moveLeft(place.left() + (place.width() - text.width()) / 2);
    } else if (alignment & Qt::AlignRight) {
        cut.moveRight(place.right());
    }
    return cut;
}

CHyperLink::CHyperLink(LinkServices services, QWidget* parent)
    : QAbstractButton(parent), m_services(services)
{
    setBackgroundRole(QPalette::Window);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    SetUnderline(true);
    connect(this, &QAbstractButton::clicked, this, [this] { OnClicked(); });
}

void CHyperLink::SetText(const QString& text)
{
    m_strText = text;
    OnTextChanged();
}

void CHyperLink::SetTarget(const QString& target)
{
    m_strTarget = target;
    OnTextChanged();
}

const QString& CHyperLink::Text() const
{
    return m_strText.isEmpty() ? m_strTarget : m_strText;
}

const QString& CHyperLink::Target() const
{
    return m_strTarget.isEmpty() ? m_strText : m_strTarget;
}

void CHyperLink::OnTextChanged()
{
    setAccessibleName(Text());
    setToolTip(Qt::mightBeRichText(Target()) ? Target().toHtmlEscaped() : Target());
    updateGeometry();
    update();
    if (isVisible()) {
        FitToText();
    }
}

void CHyperLink::SetAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

void CHyperLink::SetVisited(bool bVisited)
{
    m_bVisited = bVisited;
    update();
}

void CHyperLink::SetFitText(bool bFitText)
{
    m_bFitText = bFitText;
    update();
}

void CHyperLink::SetUnderline(bool bUnderline)
{
    QFont line;  // only the underline is set; the rest is inherited
    line.setUnderline(bUnderline);
    setFont(line);
}

QColor CHyperLink::TextColour() const
{
    const QColor own = m_bHover     ? palette().color(QPalette::Highlight)
                       : m_bVisited ? m_crVisited
                                    : m_crNormal;
    return ReadableOn(own, palette().color(backgroundRole()));
}

QSize CHyperLink::sizeHint() const
{
    return fontMetrics().size(0, Text());
}

QSize CHyperLink::minimumSizeHint() const
{
    return sizeHint();
}

QRect CHyperLink::LinkRect() const
{
    return m_bFitText ? CutToText(rect(), sizeHint(), m_alignment) : rect();
}

void CHyperLink::FitToText()
{
    const bool held = parentWidget() != nullptr && parentWidget()->layout() != nullptr;
    if (m_bFitText && !held) {
        setGeometry(CutToText(geometry(), sizeHint(), m_alignment));
    }
}

void CHyperLink::showEvent(QShowEvent* event)
{
    QAbstractButton::showEvent(event);
    FitToText();
}

void CHyperLink::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect place = CutToText(rect(), sizeHint(), m_alignment);
    painter.setPen(TextColour());
    painter.drawText(place, int(Qt::AlignLeft | Qt::AlignTop), Text());
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = place;
        focus.backgroundColor = palette().color(backgroundRole());
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

void CHyperLink::mouseMoveEvent(QMouseEvent* event)
{
    QAbstractButton::mouseMoveEvent(event);
    SetHover(LinkRect().contains(event->position().toPoint()));
}

void CHyperLink::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    SetHover(false);
}

void CHyperLink::SetHover(bool bHover)
{
    if (bHover == m_bHover) {
        return;
    }
    m_bHover = bHover;
    if (bHover) {
        setCursor(Qt::PointingHandCursor);
    } else {
        unsetCursor();
    }
    update();
}

bool CHyperLink::hitButton(const QPoint& position) const
{
    return LinkRect().contains(position);
}

void CHyperLink::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) {
            click();
        }
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

void CHyperLink::OnClicked()
{
    const int result = m_services.pOpener->OpenTarget(Target());
    SetVisited(result > kLinkFailed);
    if (result <= kLinkFailed) {
        QApplication::beep();
        (void)m_services.pPrompts->Ask(LinkErrorText(result).toStdString(), {},
                                       PromptIcon::Exclamation, PromptButtons::Ok);
    }
}

}  // namespace quorbit
