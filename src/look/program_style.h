// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The style of the program: the style of the desktop with rims of check boxes and radio buttons
// that stand out, also on a dark background, and without pictures on the buttons of message boxes,
// like the other dialogs. User interface thread only.

#pragma once

#include <QProxyStyle>

namespace quorbit {

class ProgramStyle : public QProxyStyle {
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* data) const override;
};

}  // namespace quorbit
