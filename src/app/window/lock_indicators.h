// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Shows "CAP", "NUM" and "SCRL" at the right end of a status bar. User interface thread only.

#pragma once

#include <QLabel>
#include <QObject>
#include <QStatusBar>
#include <array>

namespace quorbit {

// Owned by the bar. The indicators are hidden if the display does not report the state of the keys.
class LockIndicators : public QObject {
public:
    explicit LockIndicators(QStatusBar& bar);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Update();

    std::array<QLabel*, 3> m_labels{};
};

}  // namespace quorbit
