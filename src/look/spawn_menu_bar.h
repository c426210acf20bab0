// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A menu bar that shows one of its entries lit. User interface thread only.

#pragma once

#include <QMenuBar>
#include <QRect>

namespace quorbit {

class SpawnMenuBar : public QMenuBar {
public:
    using QMenuBar::QMenuBar;

    // The rectangle gets a raised edge; an empty one takes the light away.
    void SetLight(const QRect& rect);
    [[nodiscard]] const QRect& Light() const { return m_light; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect m_light;
};

}  // namespace quorbit
