// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/flat_tool_bar_style.h"

#include <QPainter>
#include <QStyleOption>
#include <QToolBar>

#include "look/edge_painting.h"

namespace quorbit {
namespace {

// Device-independent pixels.
constexpr int kRidge = 3;
constexpr int kRidgeStep = 4;
constexpr int kGripperRoom = 10;   // two ridges, one pixel around them and one behind
constexpr int kSeparatorRoom = 8;  // a wider separator is a gap without groove
constexpr int kGroove = 2;
constexpr int kFloatingFrame = 6;  // margin to drag a floating bar by

bool IsFloating(const QWidget* widget)
{
    const auto* bar = qobject_cast<const QToolBar*>(widget);
    return bar != nullptr && bar->isFloating();
}

bool IsHorizontal(const QStyleOption& option)
{
    return option.state.testFlag(QStyle::State_Horizontal);
}

void DrawGripper(const QStyleOption& option, QPainter& painter)
{
    const bool horizontal = IsHorizontal(option);
    QRect ridge = option.rect.adjusted(1, 1, -1, -1);
    if (horizontal) {
        ridge.setWidth(kRidge);
    } else {
        ridge.setHeight(kRidge);
    }
    const EdgeColors colors = EdgeColors::From(option.palette);
    DrawRaisedEdge(painter, ridge, colors);
    DrawRaisedEdge(painter,
                   horizontal ? ridge.translated(kRidgeStep, 0) : ridge.translated(0, kRidgeStep),
                   colors);
}

void DrawSeparator(const QStyleOption& option, QPainter& painter)
{
    QRect groove = option.rect;
    if (IsHorizontal(option)) {
        groove.setLeft(groove.left() + (groove.width() - kGroove) / 2);
        groove.setWidth(kGroove);
    } else {
        groove.setTop(groove.top() + (groove.height() - kGroove) / 2);
        groove.setHeight(kGroove);
    }
    const int room = IsHorizontal(option) ? option.rect.width() : option.rect.height();
    if (room <= kSeparatorRoom) {
        DrawSunkenEdge(painter, groove, EdgeColors::From(option.palette));
    }
}

}  // namespace

void FlatToolBarStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                     QPainter* painter, const QWidget* widget) const
{
    if (element == PE_IndicatorToolBarHandle) {
        if (!IsFloating(widget)) {
            DrawGripper(*option, *painter);
        }
    } else if (element == PE_IndicatorToolBarSeparator) {
        DrawSeparator(*option, *painter);
    } else {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

int FlatToolBarStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const
{
    switch (metric) {
        case PM_ToolBarHandleExtent:
            return IsFloating(widget) ? 0 : kGripperRoom;
        case PM_ToolBarSeparatorExtent:
            return kSeparatorRoom;
        case PM_ToolBarItemMargin:
            if (IsFloating(widget)) {
                return kFloatingFrame;
            }
            break;
        default:
            break;
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

// A floating bar has no gripper; it can be dragged by any area without buttons.
QRect FlatToolBarStyle::subElementRect(SubElement element, const QStyleOption* option,
                                       const QWidget* widget) const
{
    return element == SE_ToolBarHandle && IsFloating(widget)
               ? option->rect
               : QProxyStyle::subElementRect(element, option, widget);
}

}  // namespace quorbit
