// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// One line that shows a path. A path that is too long loses its middle; text() stays the whole one,
// and a tool tip shows it.

#pragma once

#include <QLabel>

namespace quorbit {

class PathLabel : public QLabel {
public:
    explicit PathLabel(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString Shown() const;
    [[nodiscard]] QString ToolTip() const;
};

}  // namespace quorbit
