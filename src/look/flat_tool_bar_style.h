// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws toolbars with a gripper of two ridges and separators as thin grooves. Buttons and
// background follow the application's style. User interface thread only.

#pragma once

#include <QProxyStyle>

namespace quorbit {

// Set it on a QToolBar and on its separators. No widget may use the style after it is destroyed:
// see ReleaseStyle.
class FlatToolBarStyle : public QProxyStyle {
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                       const QWidget* widget) const override;
};

}  // namespace quorbit
