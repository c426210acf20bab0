// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Edges one device-independent pixel wide, which make a rectangle stand out or lie deep.

#pragma once

#include <QColor>
#include <QPainter>
#include <QPalette>
#include <QRect>

namespace quorbit {

struct EdgeColors {
    QColor light;
    QColor dark;

    [[nodiscard]] static EdgeColors From(const QPalette& palette);
};

// Inside of the rectangle; an empty one draws nothing.
void DrawRaisedEdge(QPainter& painter, const QRect& rect, const EdgeColors& colors);
void DrawSunkenEdge(QPainter& painter, const QRect& rect, const EdgeColors& colors);

}  // namespace quorbit
