// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/drive_drop_target.h"

#include <QScrollBar>
#include <chrono>
#include <utility>

namespace quorbit {

namespace {

constexpr std::chrono::milliseconds kHoverTick{1000};
constexpr int kHoverTicks = 3;  // expands a node at this count, which starts at 1: after two ticks
constexpr std::chrono::milliseconds kScrollTick{100};

std::optional<DragContent> ContentOf(const QMimeData* data)
{
    return data != nullptr ? ReadDrag(*data) : std::nullopt;
}

}  // namespace

DriveDropTarget::DriveDropTarget(ShellTree& tree, std::function<void(const TreeDrop&)> onDrop)
    : m_tree(tree), m_onDrop(std::move(onDrop))
{
    m_hoverTimer.setInterval(kHoverTick);
    QObject::connect(&m_hoverTimer, &QTimer::timeout, &m_hoverTimer, [this] { OnHoverTick(); });
    m_scrollTimer.setInterval(kScrollTick);
    QObject::connect(&m_scrollTimer, &QTimer::timeout, &m_scrollTimer, [this] { OnScrollTick(); });
}

void DriveDropTarget::Enter(QDragEnterEvent& event)
{
    m_savedSelection = NodeRef(m_tree, m_tree.SelectedNode());
    m_keyState = event.buttons();
    if (m_keyState == Qt::NoButton && event.mimeData() != nullptr) {
        m_keyState = ButtonOf(*event.mimeData());
    }
    // Qt sends no move events unless the enter event is accepted, so decide in Move().
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

void DriveDropTarget::Move(QDragMoveEvent& event)
{
    m_position = event.position().toPoint();
    Hover(m_position);
    Scroll(m_position.y());
    const bool taken = Destination() && ContentOf(event.mimeData());
    event.setDropAction(taken ? Qt::CopyAction : Qt::IgnoreAction);
    event.setAccepted(taken);
}

std::optional<std::string> DriveDropTarget::Destination() const
{
    const ShellTreeNode* node = m_highlight.Get();
    return node != nullptr ? node->Path() : std::nullopt;
}

void DriveDropTarget::Hover(const QPoint& position)
{
    const ShellTreeNode* under = NodeOf(m_tree.itemAt(position));
    if (under != m_highlight.Get()) {
        StopHover();
    }
    m_tree.SetHighlight(under);
    m_highlight = NodeRef(m_tree, under);
    if (under != nullptr && m_nHoverCount == 0) {
        m_hoverTimer.start();
        m_nHoverCount = 1;
    }
}

void DriveDropTarget::OnHoverTick()
{
    if (++m_nHoverCount < kHoverTicks) {
        return;
    }
    StopHover();
    ShellTreeNode* node = m_highlight.Get();
    if (node != nullptr && (node->HasMark() || node->childCount() > 0)) {
        node->setExpanded(true);
    }
}

void DriveDropTarget::StopHover()
{
    m_hoverTimer.stop();
    m_nHoverCount = 0;
}

void DriveDropTarget::Scroll(int y)
{
    const ShellTreeNode* root = m_tree.RootNode();
    const int band = root != nullptr ? m_tree.visualItemRect(root).height() : 0;
    const int height = m_tree.viewport()->height();
    m_scrollAction = y >= 0 && y <= band                 ? QAbstractSlider::SliderSingleStepSub
                     : y >= height - band && y <= height ? QAbstractSlider::SliderSingleStepAdd
                                                         : QAbstractSlider::SliderNoAction;
    if (m_scrollAction == QAbstractSlider::SliderNoAction) {
        m_scrollTimer.stop();
    } else if (!m_scrollTimer.isActive()) {
        m_scrollTimer.start();
    }
}

void DriveDropTarget::OnScrollTick()
{
    QScrollBar& bar = *m_tree.verticalScrollBar();
    const int before = bar.value();
    bar.triggerAction(m_scrollAction);
    if (bar.value() != before) {
        Hover(m_position);
    }
}

void DriveDropTarget::EndDrag()
{
    StopHover();
    m_scrollTimer.stop();
    m_tree.SetHighlight(nullptr);
    m_highlight = {};
    ShellTreeNode* saved = m_savedSelection.Get();
    if (saved != nullptr && saved != m_tree.SelectedNode()) {
        m_tree.setCurrentItem(saved);
    }
}

void DriveDropTarget::Leave()
{
    EndDrag();
    m_keyState = Qt::NoButton;
}

void DriveDropTarget::Drop(QDropEvent& event)
{
    auto content = ContentOf(event.mimeData());
    auto destination = Destination();
    EndDrag();
    if (!content || !destination) {
        event.setDropAction(Qt::IgnoreAction);
        event.ignore();
        return;
    }
    // Always report a copy: after a move, the source program might delete its data.
    event.setDropAction(Qt::CopyAction);
    event.accept();
    QTimer::singleShot(
        0, &m_hoverTimer,
        [this, drop = TreeDrop{std::move(*content), std::move(*destination),
                               event.position().toPoint(), m_keyState.testFlag(Qt::RightButton)}] {
            m_onDrop(drop);
        });
}

}  // namespace quorbit
