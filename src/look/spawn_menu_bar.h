// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A menu bar that can highlight one of its entries. User interface thread only.

#pragma once

#include <QMenuBar>
#include <QRect>

namespace quorbit {

class SpawnMenuBar : public QMenuBar {
public:
    using QMenuBar::QMenuBar;

    // Draws a raised edge around the rectangle, in coordinates of the bar; an empty one removes it.
    void SetLight(const QRect& rect);
    [[nodiscard]] const QRect& Light() const { return m_light; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect m_light;
};

}  // namespace quorbit
