// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Measures and draws the entries of menus and menu bars through CMenuSpawn. Everything else follows
// the application's style. User interface thread only.

#pragma once

#include <QProxyStyle>
#include <QStyleOptionMenuItem>

#include "look/menu_spawn.h"

namespace quorbit {

class SpawnMenuStyle : public QProxyStyle {
public:
    // spawn must outlive the style. No widget may use the style after it is destroyed: see
    // ReleaseStyle.
    explicit SpawnMenuStyle(const CMenuSpawn& spawn) : m_spawn(spawn) {}

    [[nodiscard]] MenuLook LookOf(const QStyleOption& option, const QFont& font) const;

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& size, const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* data) const override;

private:
    [[nodiscard]] QSize EntrySize(const QStyleOptionMenuItem& option) const;
    void DrawEntry(const QStyleOptionMenuItem& option, QPainter& painter,
                   const QWidget* widget) const;
    void DrawBarEntry(const QStyleOptionMenuItem& option, QPainter& painter,
                      const QWidget* widget) const;
    void DrawArrow(const QStyleOptionMenuItem& option, QPainter& painter, const QColor& color,
                   const QWidget* widget) const;

    const CMenuSpawn& m_spawn;
};

}  // namespace quorbit
