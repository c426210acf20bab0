// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/spawn_menu_bar.h"

#include <QPainter>
#include <utility>

#include "look/edge_painting.h"

namespace quorbit {

void SpawnMenuBar::SetLight(const QRect& rect)
{
    const QRect old = std::exchange(m_light, rect);
    if (old != rect) {
        update(old);
        update(rect);
    }
}

void SpawnMenuBar::paintEvent(QPaintEvent* event)
{
    QMenuBar::paintEvent(event);
    QPainter painter(this);
    DrawRaisedEdge(painter, m_light, EdgeColors::From(palette()));
}

}  // namespace quorbit
