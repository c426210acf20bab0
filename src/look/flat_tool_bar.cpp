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

// The smallest button, in units of the font so that it scales. Derived from 54 by 40 pixels with a
// picture of 16 by 15, a line height of 13 and an average character width of 8.
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

// Qt opens the menu beside the button if the bar is vertical, so move it after it is shown.
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
    // If the button does not fit into the window, its menu opens from the extension menu.
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
        case QEvent::LayoutRequest:  // the size hint of a button changed
            PutSizes();
            break;
        case QEvent::Show:  // also sent when the bar starts or stops floating
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

// A button that moves away from under the mouse gets no leave event and would stay highlighted.
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

// Invalidates the layout so that it also re-reads the extent of the gripper.
void CFlatToolBar::PutMargins()
{
    const int margin = style()->pixelMetric(QStyle::PM_ToolBarFrameWidth, nullptr, this) +
                       style()->pixelMetric(QStyle::PM_ToolBarItemMargin, nullptr, this);
    layout()->setContentsMargins(margin, margin, margin, margin);
    layout()->invalidate();
}

// Buttons are at least LeastSize, plus the arrow if there is one, and never smaller than their size
// hint, so that no label is cut off.
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
