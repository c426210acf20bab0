// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/program_style.h"

#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "look/contrast.h"

namespace quorbit {
namespace {

void DrawRim(const QStyleOption& option, bool round, QPainter& painter)
{
    const QColor background = option.palette.color(QPalette::Window);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(ReadableOn(option.palette.color(QPalette::Mid), background));
    painter.setBrush(Qt::NoBrush);
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (round) {
        const double radius = std::min(box.width(), box.height()) / 2;
        painter.drawEllipse(box.center(), radius, radius);
    } else {
        painter.drawRect(box);
    }
    painter.restore();
}

}  // namespace

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool round = element == PE_IndicatorRadioButton;
    const bool enabled = (option->state & State_Enabled) != 0;
    if (enabled && (round || element == PE_IndicatorCheckBox)) {
        DrawRim(*option, round, *painter);
    }
}

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* data) const
{
    return hint == SH_DialogButtonBox_ButtonsHaveIcons
               ? 0
               : QProxyStyle::styleHint(hint, option, widget, data);
}

}  // namespace quorbit
