// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/edge_painting.h"

namespace quorbit {
namespace {

void DrawEdge(QPainter& painter, const QRect& rect, const QColor& topLeft,
              const QColor& bottomRight)
{
    if (rect.isEmpty()) {
        return;
    }
    painter.fillRect(rect.left(), rect.top(), rect.width(), 1, topLeft);
    painter.fillRect(rect.left(), rect.top(), 1, rect.height(), topLeft);
    painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, bottomRight);
    painter.fillRect(rect.right(), rect.top(), 1, rect.height(), bottomRight);
}

}  // namespace

EdgeColors EdgeColors::From(const QPalette& palette)
{
    return {palette.color(QPalette::Active, QPalette::Light),
            palette.color(QPalette::Active, QPalette::Dark)};
}

void DrawRaisedEdge(QPainter& painter, const QRect& rect, const EdgeColors& colors)
{
    DrawEdge(painter, rect, colors.light, colors.dark);
}

void DrawSunkenEdge(QPainter& painter, const QRect& rect, const EdgeColors& colors)
{
    DrawEdge(painter, rect, colors.dark, colors.light);
}

}  // namespace quorbit
