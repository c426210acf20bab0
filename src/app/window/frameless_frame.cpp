// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/frameless_frame.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QMouseEvent>
#include <QStyle>
#include <QWindow>
#include <algorithm>

#include "app/window/caption_bar.h"

namespace quorbit {
namespace {

constexpr int kLeastBorder = 4;
constexpr int kCornerInBorders = 4;

// Qt replaces this in a window title with its modification mark; doubled, it is plain text.
const QString& ChangeMark()
{
    static const QString mark = QStringLiteral("[*]");
    return mark;
}

Qt::CursorShape CursorOf(Qt::Edges edges)
{
    if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge)) {
        return Qt::SizeFDiagCursor;
    }
    if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge)) {
        return Qt::SizeBDiagCursor;
    }
    return edges & (Qt::LeftEdge | Qt::RightEdge) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

}  // namespace

FramelessFrame::FramelessFrame(QMainWindow& frame, bool frameless)
    : m_frame(frame), m_bar(new CaptionBar(&frame))
{
    m_bar->hide();
    connect(&frame, &QWidget::windowTitleChanged, this,
            [this](const QString& title) { ShowTitle(title); });
    if (!frameless) {
        return;
    }
    // The button hints tell the window manager which operations the window supports.
    frame.setWindowFlags(frame.windowFlags() | Qt::FramelessWindowHint | Qt::WindowSystemMenuHint |
                         Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
    m_border =
        std::max(frame.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, &frame),
                 kLeastBorder);
    MakeGrips();
    frame.installEventFilter(this);
    ShowTitle(frame.windowTitle());
    ShowState();
    Place();
}

bool FramelessFrame::OffersSystemMove()
{
    const QString platform = QGuiApplication::platformName();
    return platform == QLatin1String("xcb") || platform.startsWith(QLatin1String("wayland"));
}

// --- title and state ----------------------------------------------------------------------------

void FramelessFrame::SetTitle(const QString& program, const QString& document)
{
    m_program = program;
    QString title = program + QLatin1Char(' ') + document;
    title.replace(ChangeMark(), ChangeMark() + ChangeMark());
    m_frame.setWindowTitle(title);
    m_bar->SetTitle(program, document);
}

void FramelessFrame::ShowTitle(QString title)
{
    title.replace(ChangeMark() + ChangeMark(), ChangeMark());
    const QString start = m_program + QLatin1Char(' ');
    if (!m_program.isEmpty() && title.startsWith(start)) {
        m_bar->SetTitle(m_program, title.mid(start.size()));
    } else {
        m_bar->SetTitle(title, QString());
    }
}

void FramelessFrame::ShowState()
{
    m_bar->SetActive(m_frame.isActiveWindow() && m_frame.isEnabled());
}

bool FramelessFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &m_frame) {
        return OnGrip(static_cast<QWidget&>(*watched), *event);
    }
    switch (event->type()) {
        case QEvent::Resize:
        case QEvent::LayoutRequest:  // the height of the bar may have changed
            Place();
            break;
        case QEvent::WindowStateChange:
        case QEvent::WindowIconChange:
            m_bar->Refresh();
            Place();
            break;
        case QEvent::WindowActivate:
        case QEvent::WindowDeactivate:
        case QEvent::EnabledChange:
            ShowState();
            break;
        default:
            break;
    }
    return false;
}

// --- layout -------------------------------------------------------------------------------------

void FramelessFrame::Place()
{
    const bool fullScreen = m_frame.isFullScreen();
    const int border = fullScreen || m_frame.isMaximized() ? 0 : m_border;
    const int height = fullScreen ? 0 : m_bar->sizeHint().height();
    m_frame.setContentsMargins(border, border + height, border, border);
    m_bar->setGeometry(border, border, m_frame.width() - 2 * border, height);
    m_bar->setVisible(!fullScreen);
    PlaceGrips(border);
}

void FramelessFrame::MakeGrips()
{
    for (QWidget*& grip : m_grips) {
        grip = new QWidget(&m_frame);
        grip->setMouseTracking(true);
        grip->installEventFilter(this);
    }
}

void FramelessFrame::PlaceGrips(int border)
{
    const QRect all = m_frame.rect();
    const QRect inner = all.adjusted(0, border, 0, -border);
    m_grips[0]->setGeometry(0, inner.top(), border, inner.height());
    m_grips[1]->setGeometry(0, 0, all.width(), border);
    m_grips[2]->setGeometry(all.width() - border, inner.top(), border, inner.height());
    m_grips[3]->setGeometry(0, all.height() - border, all.width(), border);
    for (QWidget* grip : m_grips) {
        grip->setVisible(border > 0);
    }
}

// --- resizing -----------------------------------------------------------------------------------

Qt::Edges FramelessFrame::EdgesAt(QPoint place, QSize window, int border)
{
    const QRect inside = QRect(QPoint(), window).adjusted(border, border, -border, -border);
    if (inside.contains(place)) {
        return {};
    }
    const int corner = border * kCornerInBorders;
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, place.x() < corner);
    edges.setFlag(Qt::RightEdge, place.x() >= window.width() - corner);
    edges.setFlag(Qt::TopEdge, place.y() < corner);
    edges.setFlag(Qt::BottomEdge, place.y() >= window.height() - corner);
    return edges;
}

bool FramelessFrame::OnGrip(QWidget& grip, QEvent& event)
{
    if (event.type() != QEvent::MouseMove && event.type() != QEvent::MouseButtonPress) {
        return false;
    }
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    const QPoint place = grip.mapToParent(mouse.position().toPoint());
    const Qt::Edges edges = EdgesAt(place, m_frame.size(), m_border);
    if (event.type() == QEvent::MouseMove) {
        grip.setCursor(CursorOf(edges));
        return true;
    }
    if (mouse.button() == Qt::LeftButton) {
        m_frame.windowHandle()->startSystemResize(edges);
    }
    return true;
}

}  // namespace quorbit
