// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/flat_tool_bar.h"

#include <QAction>
#include <QActionEvent>
#include <QCursor>
#include <QLayout>
#include <QScreen>

#include "look/release_style.h"

namespace quorbit {
namespace {

// 54 by 40 pixels around a picture of 16 by 15, in a font with a line of 13 and characters of 8 on
// average.
constexpr int kButtonCharacters = 7;
constexpr int kAroundLabel = 12;

bool HasArrow(const QToolButton& button)
{
    return button.popupMode() == QToolButton::MenuButtonPopup;
}

}  // namespace

CFlatToolBar::CFlatToolBar(const QString& title, QWidget* parent) : QToolBar(title, parent)
{
    setAllowedAreas(Qt::AllToolBarAreas);
    setMovable(true);
    setFloatable(true);
}

CFlatToolBar::~CFlatToolBar()
{
    ReleaseStyle(m_style);
}

void CFlatToolBar::SetFlatLook()
{
    m_flat = true;
    setStyle(&m_style);
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    setIconSize({side, side});
    for (QAction* action : actions()) {
        if (action->isSeparator()) {
            widgetForAction(action)->setStyle(&m_style);
        }
    }
    PutSizes();
}

QToolButton* CFlatToolBar::Button(int nId) const
{
    for (QAction* action : actions()) {
        if (!action->isSeparator() && action->data().toInt() == nId) {
            return qobject_cast<QToolButton*>(widgetForAction(action));
        }
    }
    return nullptr;
}

bool CFlatToolBar::SetButtonDropDown(int nId)
{
    QToolButton* button = Button(nId);
    QMenu* menu = button == nullptr ? nullptr : button->defaultAction()->menu();
    if (menu == nullptr) {
        return false;
    }
    menu->installEventFilter(this);
    button->setPopupMode(QToolButton::MenuButtonPopup);
    PutSizes();
    return true;
}

void CFlatToolBar::actionEvent(QActionEvent* event)
{
    QToolBar::actionEvent(event);
    if (event->type() == QEvent::ActionAdded) {
        QWidget* widget = widgetForAction(event->action());
        if (m_flat && event->action()->isSeparator()) {
            widget->setStyle(&m_style);
        }
        PutSizes();
    }
}

// --- the menu of a button -----------------------------------------------------------------------

// Qt places it beside the button of a vertical bar.
bool CFlatToolBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        if (auto* menu = qobject_cast<QMenu*>(watched)) {
            PlaceMenu(*menu);
        }
    }
    return QToolBar::eventFilter(watched, event);
}

void CFlatToolBar::PlaceMenu(QMenu& menu) const
{
    const auto* button = qobject_cast<const QToolButton*>(widgetForAction(menu.menuAction()));
    // The menu of a button that does not fit into the window opens from another menu.
    if (button == nullptr || !button->isVisible()) {
        return;
    }
    const QRect place(button->mapToGlobal(QPoint(0, button->height())), menu.size());
    if (screen()->availableGeometry().contains(place)) {
        menu.move(place.topLeft());
    }
}

// --- sizes --------------------------------------------------------------------------------------

bool CFlatToolBar::event(QEvent* event)
{
    const bool handled = QToolBar::event(event);
    switch (event->type()) {
        case QEvent::Polish:
        case QEvent::FontChange:
        case QEvent::ApplicationFontChange:
        case QEvent::StyleChange:
        case QEvent::LayoutRequest:  // a button wants another size
            PutSizes();
            break;
        case QEvent::Show:  // also when it begins or ends to float
            PutMargins();
            DropStaleLight();
            break;
        case QEvent::Move:
        case QEvent::MouseButtonRelease:
            DropStaleLight();
            break;
        default:
            break;
    }
    return handled;
}

// A button that the bar took away from under the mouse is not told so, and would stay lit.
void CFlatToolBar::DropStaleLight()
{
    for (QAction* action : actions()) {
        QWidget* widget = widgetForAction(action);
        if (widget->testAttribute(Qt::WA_UnderMouse) &&
            !widget->rect().contains(widget->mapFromGlobal(QCursor::pos()))) {
            widget->setAttribute(Qt::WA_UnderMouse, false);
            widget->update();
        }
    }
}

QSize CFlatToolBar::LeastSize() const
{
    return {kButtonCharacters * fontMetrics().averageCharWidth(),
            iconSize().height() + fontMetrics().height() + kAroundLabel};
}

// The room for the gripper is read anew with them.
void CFlatToolBar::PutMargins()
{
    const int margin = style()->pixelMetric(QStyle::PM_ToolBarFrameWidth, nullptr, this) +
                       style()->pixelMetric(QStyle::PM_ToolBarItemMargin, nullptr, this);
    layout()->setContentsMargins(margin, margin, margin, margin);
    layout()->invalidate();
}

// A label that needs more gets it, and so does an arrow: the least size never cuts anything.
void CFlatToolBar::PutSizes()
{
    const QSize least = LeastSize();
    const int arrow = style()->pixelMetric(QStyle::PM_MenuButtonIndicator, nullptr, this);
    for (QAction* action : actions()) {
        if (auto* button = qobject_cast<QToolButton*>(widgetForAction(action))) {
            const QSize own = least + QSize(HasArrow(*button) ? arrow : 0, 0);
            if (button->minimumSize() != own.expandedTo(button->sizeHint())) {
                button->setMinimumSize(own.expandedTo(button->sizeHint()));
            }
        }
    }
}

}  // namespace quorbit
