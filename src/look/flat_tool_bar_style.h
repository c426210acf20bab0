// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The flat look of a toolbar: a gripper of two ridges and separators that are thin grooves. Buttons
// and ground stay as in the user's own style. User interface thread only.

#pragma once

#include <QProxyStyle>

namespace quorbit {

// To be set on a QToolBar and on its separators. No widget may keep it when it goes: see
// ReleaseStyle.
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
