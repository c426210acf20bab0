// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws raised and sunken edges, one device-independent pixel wide. User interface thread only.

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

// Draw inside the rectangle; do nothing if it is empty.
void DrawRaisedEdge(QPainter& painter, const QRect& rect, const EdgeColors& colors);
void DrawSunkenEdge(QPainter& painter, const QRect& rect, const EdgeColors& colors);

}  // namespace quorbit
