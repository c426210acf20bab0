// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A label that shows a path in one line, eliding the middle if it is too long. text() returns the
// full path; a tool tip shows it if it is elided. User interface thread only.

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
