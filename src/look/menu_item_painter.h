// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws single entries of owner-drawn menus. User interface thread only.

#pragma once

#include <QIcon>
#include <QPainter>
#include <QRect>
#include <QString>

#include "look/menu_look.h"

namespace quorbit {

// The position and the state of an entry.
struct MenuItemState {
    QRect rect{};  // of the whole entry, device-independent pixels
    bool selected = false;
    bool enabled = true;
    bool checked = false;
};

class MenuItemPainter {
public:
    // Both must outlive this object. Each call leaves the state of the painter unchanged.
    MenuItemPainter(QPainter& painter, const MenuLook& look) : m_painter(painter), m_look(look) {}

    void DrawSeparator(const QRect& rect);
    void DrawBarEntry(const MenuItemState& state, const QString& text);
    // picture may be null; a checked entry without a picture gets the check mark.
    void DrawEntry(const MenuItemState& state, const QString& text, const QIcon& picture,
                   const QIcon& checkMark);

private:
    void DrawPicture(const MenuItemState& state, const QRect& square, const QIcon& picture);
    void DrawCheckMark(const QRect& square, const QIcon& checkMark);
    void DrawEntryText(const MenuItemState& state, QRect area, const QString& text);
    void DrawLine(const QRect& area, const QString& text, const QColor& color);

    QPainter& m_painter;
    const MenuLook& m_look;
};

}  // namespace quorbit
