// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/spawn_menu_style.h"

#include <QFontMetrics>

namespace quorbit {
namespace {

constexpr int kArrowRoom = 15;
constexpr int kArrow = 9;
constexpr QSize kAroundBarEntry(16, 8);  // what the platform adds to the size of the text

// The dark edge would not stand out from a dark window; the background mixed with a third of the
// text colour always does.
QColor FrameColor(const MenuColors& colors)
{
    const auto mix = [](int ground, int text) { return (2 * ground + text) / 3; };
    return {mix(colors.background.red(), colors.text.red()),
            mix(colors.background.green(), colors.text.green()),
            mix(colors.background.blue(), colors.text.blue())};
}

bool IsOurs(const QStyleOptionMenuItem& option)
{
    switch (option.menuItemType) {
        case QStyleOptionMenuItem::Normal:
        case QStyleOptionMenuItem::DefaultItem:
        case QStyleOptionMenuItem::Separator:
        case QStyleOptionMenuItem::SubMenu:
            return true;
        default:
            return false;
    }
}

const QStyleOptionMenuItem* OurEntry(const QStyleOption* option)
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    return item != nullptr && IsOurs(*item) ? item : nullptr;
}

// Returns the item for measuring an entry, and for drawing one that was not remapped.
SpawnItem PlainItem(const QStyleOptionMenuItem& option)
{
    switch (option.menuItemType) {
        case QStyleOptionMenuItem::Separator:
            return {SPAWN_SEPARATOR, SPAWN_SEPARATOR, QStringLiteral("--")};
        case QStyleOptionMenuItem::SubMenu:
            return {SPAWN_SUBMENU, SPAWN_SUBMENU, option.text};
        default:
            return {-1, 0, option.text};
    }
}

}  // namespace

MenuLook SpawnMenuStyle::LookOf(const QStyleOption& option, const QFont& font) const
{
    return {MenuColors::From(option.palette), font,
            pixelMetric(PM_SmallIconSize, &option, nullptr)};
}

int SpawnMenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                              QStyleHintReturn* data) const
{
    // Let the keyboard reach disabled entries, so that users can find them.
    return hint == SH_Menu_AllowActiveAndDisabled
               ? 1
               : QProxyStyle::styleHint(hint, option, widget, data);
}

// One pixel for the frame of the panel and one for the background inside it.
int SpawnMenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                const QWidget* widget) const
{
    return metric == PM_MenuPanelWidth ? 2 : QProxyStyle::pixelMetric(metric, option, widget);
}

// --- sizes --------------------------------------------------------------------------------------

QSize SpawnMenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                       const QSize& size, const QWidget* widget) const
{
    const QStyleOptionMenuItem* item = OurEntry(option);
    if (type == CT_MenuItem && item != nullptr) {
        return EntrySize(*item);
    }
    if (type == CT_MenuBarItem && item != nullptr) {
        const SpawnItem entry{SPAWN_BAR, SPAWN_BAR, item->text};
        return m_spawn.MeasureItem(entry, LookOf(*item, item->font)) + kAroundBarEntry;
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

// QMenu itself adds the width of the widest text after a tab, so leave that text out here.
QSize SpawnMenuStyle::EntrySize(const QStyleOptionMenuItem& option) const
{
    const SpawnItem item = PlainItem(option);
    QSize size = m_spawn.MeasureItem(item, LookOf(option, option.font));
    const qsizetype tab = item.szText.indexOf(QLatin1Char('\t'));
    if (tab >= 0) {
        size.rwidth() -= QFontMetrics(option.font).horizontalAdvance(item.szText.mid(tab + 1));
    }
    return size;
}

// --- drawing ------------------------------------------------------------------------------------

void SpawnMenuStyle::drawControl(ControlElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const
{
    const QStyleOptionMenuItem* item = OurEntry(option);
    if (element == CE_MenuItem && item != nullptr) {
        DrawEntry(*item, *painter, widget);
    } else if (element == CE_MenuBarItem && item != nullptr) {
        DrawBarEntry(*item, *painter, widget);
    } else if (element == CE_MenuBarEmptyArea || element == CE_MenuEmptyArea) {
        painter->fillRect(option->rect, MenuColors::From(option->palette).background);
    } else {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void SpawnMenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                   QPainter* painter, const QWidget* widget) const
{
    if (element == PE_PanelMenu) {
        const MenuColors colors = MenuColors::From(option->palette);
        painter->fillRect(option->rect, colors.background);
        const QColor frame = FrameColor(colors);
        DrawRaisedEdge(*painter, option->rect, {frame, frame});
    } else if (element == PE_FrameMenu) {
        // PE_PanelMenu has drawn the frame.
    } else {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void SpawnMenuStyle::DrawEntry(const QStyleOptionMenuItem& option, QPainter& painter,
                               const QWidget* widget) const
{
    const auto* menu = qobject_cast<const QMenu*>(widget);
    const QAction* action = menu == nullptr ? nullptr : menu->actionAt(option.rect.center());
    const SpawnItem* known = m_spawn.ItemOf(action);
    const MenuLook look = LookOf(option, option.font);
    const MenuItemState state{
        option.rect, option.state.testFlag(State_Selected), option.state.testFlag(State_Enabled),
        option.checkType != QStyleOptionMenuItem::NotCheckable && option.checked};
    m_spawn.DrawItem(painter, look, known != nullptr ? *known : PlainItem(option), state,
                     option.icon);
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu) {
        DrawArrow(option, painter,
                  !state.enabled   ? look.colors.disabledText
                  : state.selected ? look.colors.selectedText
                                   : look.colors.text,
                  widget);
    }
}

void SpawnMenuStyle::DrawArrow(const QStyleOptionMenuItem& option, QPainter& painter,
                               const QColor& color, const QWidget* widget) const
{
    QStyleOption arrow;
    arrow.state = option.state;
    arrow.direction = option.direction;
    arrow.fontMetrics = option.fontMetrics;
    arrow.palette = option.palette;
    arrow.rect = QRect(option.rect.right() + 1 - kArrowRoom, option.rect.center().y() - kArrow / 2,
                       kArrow, kArrow);
    for (const QPalette::ColorRole role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        arrow.palette.setColor(role, color);
    }
    proxy()->drawPrimitive(PE_IndicatorArrowRight, &arrow, &painter, widget);
}

// QMenuBar also selects the entry under the mouse. Draw only an open entry, or one that is selected
// with the keyboard, sunken.
void SpawnMenuStyle::DrawBarEntry(const QStyleOptionMenuItem& option, QPainter& painter,
                                  const QWidget* widget) const
{
    const bool byKeys = widget != nullptr && widget->hasFocus();
    const MenuItemState state{
        option.rect,
        option.state.testFlag(State_Selected) && (byKeys || option.state.testFlag(State_Sunken)),
        option.state.testFlag(State_Enabled), false};
    m_spawn.DrawItem(painter, LookOf(option, option.font), {SPAWN_BAR, SPAWN_BAR, option.text},
                     state);
}

}  // namespace quorbit
