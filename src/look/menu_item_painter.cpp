// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/menu_item_painter.h"

#include <algorithm>

namespace quorbit {
namespace {

constexpr int kTextInset = 2;
constexpr int kRoomForArrow = 15;
constexpr int kCheckMarkLift = 2;
constexpr int kCheckMarkExtra = 3;  // the check mark is larger than a picture by this

QRect Centred(const QRect& area, int side)
{
    return {area.left() + (area.width() - side) / 2, area.top() + (area.height() - side) / 2, side,
            side};
}

}  // namespace

void MenuItemPainter::DrawSeparator(const QRect& rect)
{
    const int width = rect.width() - 2 * kTextInset;
    const int left = rect.left() + kTextInset;
    m_painter.fillRect(rect, m_look.colors.background);
    m_painter.fillRect(left, rect.top() + 2, width, 1, m_look.colors.edge.dark);
    m_painter.fillRect(left, rect.top() + 3, width, 1, m_look.colors.edge.light);
}

void MenuItemPainter::DrawBarEntry(const MenuItemState& state, const QString& text)
{
    const bool sunken = state.selected && state.enabled;
    m_painter.save();
    m_painter.fillRect(state.rect, m_look.colors.background);
    m_painter.setFont(m_look.font);
    m_painter.setPen(state.enabled ? m_look.colors.text : m_look.colors.disabledText);
    // Moving the left edge by two pixels moves centred text by one.
    m_painter.drawText(state.rect.adjusted(sunken ? 2 : 0, sunken ? 1 : 0, 0, 0),
                       Qt::AlignCenter | Qt::TextSingleLine | Qt::TextShowMnemonic, text);
    if (sunken) {
        DrawSunkenEdge(m_painter, state.rect, m_look.colors.edge);
    }
    m_painter.restore();
}

void MenuItemPainter::DrawEntry(const MenuItemState& state, const QString& text,
                                const QIcon& picture, const QIcon& checkMark)
{
    const int side = state.rect.height();
    const QRect square(state.rect.topLeft(), QSize(side, side));
    const QRect area = state.rect.adjusted(side + 1, 0, 0, 0);
    const bool keepsSquare = !picture.isNull() || state.checked;

    m_painter.save();
    m_painter.fillRect(state.rect, m_look.colors.background);
    if (state.selected) {
        m_painter.fillRect(keepsSquare ? area : state.rect, m_look.colors.selectedBackground);
    }
    if (!picture.isNull()) {
        DrawPicture(state, square, picture);
    } else if (state.checked) {
        DrawCheckMark(square, checkMark);
    }
    DrawEntryText(state, area, text);
    m_painter.restore();
}

// The picture of a selected entry is drawn on a raised button. The others get no button background,
// because its colour differs from that of the menu in some palettes.
void MenuItemPainter::DrawPicture(const MenuItemState& state, const QRect& square,
                                  const QIcon& picture)
{
    if (state.selected && state.enabled) {
        m_painter.fillRect(square, m_look.colors.behindPicture);
        DrawRaisedEdge(m_painter, square, m_look.colors.edge);
    }
    picture.paint(&m_painter, Centred(square, m_look.nPicture), Qt::AlignCenter,
                  state.enabled ? QIcon::Normal : QIcon::Disabled);
}

void MenuItemPainter::DrawCheckMark(const QRect& square, const QIcon& checkMark)
{
    const int side = std::min(m_look.nPicture + kCheckMarkExtra, square.height());
    QRect place = Centred(square, side);
    // Stay inside the entry: the one above is drawn separately.
    place.moveTop(std::max(place.top() - kCheckMarkLift, square.top()));
    checkMark.paint(&m_painter, place);
}

void MenuItemPainter::DrawEntryText(const MenuItemState& state, QRect area, const QString& text)
{
    const MenuColors& colors = m_look.colors;
    area.adjust(kTextInset, 0, -kRoomForArrow, 0);
    m_painter.setFont(m_look.font);
    if (state.enabled) {
        DrawLine(area, text, state.selected ? colors.selectedText : colors.text);
    } else if (state.selected) {
        DrawLine(area, text, colors.background);
    } else {
        if (colors.Engraves()) {
            DrawLine(area.translated(1, 1), text, colors.edge.light);
        }
        DrawLine(area, text, colors.disabledText);
    }
}

void MenuItemPainter::DrawLine(const QRect& area, const QString& text, const QColor& color)
{
    constexpr int kFlags =
        Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextShowMnemonic | Qt::TextDontClip;
    const qsizetype tab = text.indexOf(QLatin1Char('\t'));
    m_painter.setPen(color);
    m_painter.drawText(area, kFlags | Qt::AlignLeft, tab < 0 ? text : text.left(tab));
    if (tab >= 0) {
        m_painter.drawText(area, kFlags | Qt::AlignRight, text.mid(tab + 1));
    }
}

}  // namespace quorbit
