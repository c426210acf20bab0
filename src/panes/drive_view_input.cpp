// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The event handlers of CDriveView: focus, mouse, context menu and drags.

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QMouseEvent>

#include "panes/drive_view.h"
#include "panes/pane_keys.h"

namespace quorbit {

void CDriveView::focusInEvent(QFocusEvent* event)
{
    ShellTree::focusInEvent(event);
    m_bFocus = true;
    if (m_services.setActive) {
        m_services.setActive(this);
    }
}

void CDriveView::focusOutEvent(QFocusEvent* event)
{
    ShellTree::focusOutEvent(event);
    // A menu takes the focus only while it is used, and its commands apply to this pane.
    m_bFocus = event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason;
}

// A press on an item does not select it, because a drag may follow, which must not change the file
// list. The release selects it.
void CDriveView::mousePressEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const QTreeWidgetItem* item = itemAt(position);
    const bool onItem = item != nullptr && visualItemRect(item).contains(position);
    m_gesture.Cancel();
    if (event->button() == Qt::RightButton || (event->button() == Qt::LeftButton && onItem)) {
        m_gesture.Press(*event);
        event->accept();
    } else {
        ShellTree::mousePressEvent(event);
    }
}

// With a button pressed, a move may start a drag but never selects items.
void CDriveView::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::NoButton) {
        ShellTree::mouseMoveEvent(event);
    } else if (const Qt::MouseButton button = m_gesture.Move(*event); button != Qt::NoButton) {
        BeginDrag(button);
    }
}

void CDriveView::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_gesture.Release(*event)) {
        ShellTree::mouseReleaseEvent(event);
        return;
    }
    const QPoint position = event->position().toPoint();
    ShellTreeNode* node = NodeOf(itemAt(position));
    if (event->button() == Qt::RightButton) {
        OpenContextMenu(node, event->globalPosition().toPoint());
    } else if (node != nullptr && node == itemAt(m_gesture.Start())) {
        setCurrentItem(node);
    }
}

void CDriveView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    ShellTreeNode* node = NodeOf(itemAt(position));
    m_gesture.Cancel();
    if (event->button() == Qt::LeftButton && node != nullptr &&
        visualItemRect(node).contains(position)) {
        node->setExpanded(!node->isExpanded() && (node->HasMark() || node->childCount() > 0));
    } else {
        ShellTree::mouseDoubleClickEvent(event);
    }
}

// Handles the menu key only. The mouse opens the menu when the button is released, because the
// right button may start a drag.
void CDriveView::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() != QContextMenuEvent::Mouse) {
        OnMenuKey();
    }
}

void CDriveView::OnMenuKey()
{
    if (ShellTreeNode* node = SelectedNode()) {
        scrollToItem(node);
        const QRect visible = visualItemRect(node) & viewport()->rect();
        OpenContextMenu(node, viewport()->mapToGlobal(visible.center()));
    }
}

void CDriveView::keyPressEvent(QKeyEvent* event)
{
    if (IsMenuKey(*event)) {
        OnMenuKey();
    } else if (IsParentKey(*event)) {
        SelectParent();
    } else {
        ShellTree::keyPressEvent(event);
    }
}

void CDriveView::BeginDrag(Qt::MouseButton button)
{
    const ShellTreeNode* node = NodeOf(itemAt(m_gesture.Start()));
    std::string path;
    if (GetItemPath(node, path)) {
        m_runDrag(*this, FolderDrag(path), button);
    }
}

void CDriveView::dragEnterEvent(QDragEnterEvent* event)
{
    m_dropTarget.Enter(*event);
}

void CDriveView::dragMoveEvent(QDragMoveEvent* event)
{
    m_dropTarget.Move(*event);
}

void CDriveView::dragLeaveEvent(QDragLeaveEvent* event)
{
    m_dropTarget.Leave();
    event->accept();
}

void CDriveView::dropEvent(QDropEvent* event)
{
    m_dropTarget.Drop(*event);
}

}  // namespace quorbit
