// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/caption_bar.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QWindow>
#include <algorithm>

namespace quorbit {
namespace {

constexpr int kButtonInset = 2;
constexpr int kSignInset = 3;  // margin of the symbol inside the button

// Returns the symbol of the style in the text colour of a button. The style draws the symbols for a
// light palette only.
QIcon ButtonIcon(const QWidget& button, QStyle::StandardPixmap sign)
{
    const QIcon icon = button.style()->standardIcon(sign, nullptr, &button);
    QPixmap pixmap = icon.pixmap(QSize(16, 16), button.devicePixelRatioF());
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(), pixmap.deviceIndependentSize().toSize()),
                     button.palette().color(QPalette::ButtonText));
    return QIcon(pixmap);
}

void Name(QToolButton& button, const QString& name)
{
    button.setToolTip(name);
    button.setAccessibleName(name);
}

}  // namespace

CaptionBar::CaptionBar(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setLayoutDirection(Qt::LeftToRight);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setAccessibleName(QStringLiteral("Title bar"));
    setCursor(Qt::ArrowCursor);
    MakeButtons();
    MakeMenu();
    Refresh();
}

void CaptionBar::MakeButtons()
{
    for (QToolButton* button : {&m_minimise, &m_maximise, &m_close}) {
        button->setFocusPolicy(Qt::NoFocus);
    }
    Name(m_minimise, QStringLiteral("Minimise"));
    Name(m_close, QStringLiteral("Close"));
    connect(&m_minimise, &QToolButton::clicked, this, [this] { window()->showMinimized(); });
    connect(&m_maximise, &QToolButton::clicked, this, [this] { ToggleMaximised(); });
    connect(&m_close, &QToolButton::clicked, this, [this] { window()->close(); });
}

void CaptionBar::MakeMenu()
{
    m_menuRestore = m_menu.addAction(QStringLiteral("&Restore"));
    QAction* minimise = m_menu.addAction(QStringLiteral("Mi&nimise"));
    m_menuMaximise = m_menu.addAction(QStringLiteral("Ma&ximise"));
    m_menu.addSeparator();
    QAction* close = m_menu.addAction(QStringLiteral("&Close"));
    connect(m_menuRestore, &QAction::triggered, this, [this] { window()->showNormal(); });
    connect(minimise, &QAction::triggered, this, [this] { window()->showMinimized(); });
    connect(m_menuMaximise, &QAction::triggered, this, [this] { window()->showMaximized(); });
    connect(close, &QAction::triggered, this, [this] { window()->close(); });
}

// --- contents -----------------------------------------------------------------------------------

void CaptionBar::SetTitle(const QString& program, const QString& document)
{
    m_picture.SetTitle(program, document);
    update();
}

void CaptionBar::SetActive(bool active)
{
    if (active != m_bActive) {
        m_bActive = active;
        update();
    }
}

void CaptionBar::Refresh()
{
    const bool maximised = window()->isMaximized();
    Name(m_maximise, maximised ? QStringLiteral("Restore") : QStringLiteral("Maximise"));
    m_minimise.setIcon(ButtonIcon(m_minimise, QStyle::SP_TitleBarMinButton));
    m_maximise.setIcon(ButtonIcon(
        m_maximise, maximised ? QStyle::SP_TitleBarNormalButton : QStyle::SP_TitleBarMaxButton));
    m_close.setIcon(ButtonIcon(m_close, QStyle::SP_TitleBarCloseButton));
    Redraw();
}

void CaptionBar::Redraw()
{
    m_picture.Discard();
    update();
}

// --- size ---------------------------------------------------------------------------------------

QSize CaptionBar::sizeHint() const
{
    const int height = std::max(m_picture.TextHeight(),
                                style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this));
    return {20 * height, height};
}

QSize CaptionBar::minimumSizeHint() const
{
    const int height = sizeHint().height();
    return {4 * height, height};
}

void CaptionBar::resizeEvent(QResizeEvent*)
{
    const int side = std::max(height() - 2 * kButtonInset, 0);
    const int sign = std::max(side - 2 * kSignInset, 0);
    int right = width();
    for (QToolButton* button : {&m_close, &m_maximise, &m_minimise}) {
        // Minimise and maximise are adjacent, with a gap before close.
        right -= button == &m_minimise ? side : side + kButtonInset;
        button->setGeometry(right, kButtonInset, side, side);
        button->setIconSize({sign, sign});
    }
}

// --- painting -----------------------------------------------------------------------------------

void CaptionBar::paintEvent(QPaintEvent*)
{
    m_picture.Paint(*this, m_bActive, m_minimise.geometry().left());
}

bool CaptionBar::event(QEvent* event)
{
    switch (event->type()) {
        case QEvent::FontChange:
        case QEvent::ApplicationFontChange:
        case QEvent::StyleChange:
        case QEvent::ThemeChange:
            m_picture.ReadFonts();
            updateGeometry();
            Refresh();
            break;
        case QEvent::PaletteChange:
        case QEvent::ScreenChangeInternal:
            Refresh();
            break;
        default:
            break;
    }
    return QWidget::event(event);
}

// --- the mouse ----------------------------------------------------------------------------------

void CaptionBar::ToggleMaximised()
{
    if (window()->isMaximized()) {
        window()->showNormal();
    } else {
        window()->showMaximized();
    }
}

void CaptionBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_pressedAt = event->position().toPoint();
    }
}

// Start the move only after the mouse has moved: startSystemMove hands the mouse over to the window
// manager, and a double click would never arrive.
void CaptionBar::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressedAt || !event->buttons().testFlag(Qt::LeftButton)) {
        return;
    }
    const QPoint way = event->position().toPoint() - *m_pressedAt;
    if (way.manhattanLength() >= QApplication::startDragDistance()) {
        m_pressedAt.reset();
        window()->windowHandle()->startSystemMove();
    }
}

void CaptionBar::mouseReleaseEvent(QMouseEvent*)
{
    m_pressedAt.reset();
}

void CaptionBar::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_pressedAt.reset();
        ToggleMaximised();
    }
}

void CaptionBar::contextMenuEvent(QContextMenuEvent* event)
{
    m_menuRestore->setEnabled(window()->isMaximized());
    m_menuMaximise->setEnabled(!window()->isMaximized());
    m_menu.popup(event->globalPos());
}

}  // namespace quorbit
