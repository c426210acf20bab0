// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The tree as the target of a drag: highlight, opening of nodes, scrolling, and what was dropped.
// User interface thread only.

#pragma once

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QTimer>
#include <functional>
#include <string>

#include "panes/node_ref.h"

namespace quorbit {

// Something of ours was dropped on a node.
struct TreeDrop {
    NodeRef node;
    QPoint position;  // in the viewport
    bool rightButton = false;
};

class DriveDropTarget {
public:
    // tree outlives this object. onDrop is called after the drop has returned, by the event loop,
    // so that whoever carries the drag does not wait.
    DriveDropTarget(ShellTree& tree, std::function<void(const TreeDrop&)> onDrop);

    // What button makes the drag is decided here and nowhere else.
    void Enter(QDragEnterEvent& event);
    // Accepts what is ours over any node but the root one. Whatever is dragged, the node under it
    // is highlighted, and opened after two seconds.
    void Move(QDragMoveEvent& event);
    void Leave();
    void Drop(QDropEvent& event);

    // The node that was last under a drag, which is the destination; null for none. Stays when the
    // drag is over.
    [[nodiscard]] ShellTreeNode* DropNode() const { return m_dropNode.Get(); }
    // The last drop: D and a path, or F and names; empty if it was not ours.
    [[nodiscard]] const std::string& DropText() const { return m_strDropText; }

private:
    void Hover(const QPoint& position);
    void OnHoverTick();
    void StopHover();
    void Scroll(int y);
    void OnScrollTick();
    void EndDrag();

    ShellTree& m_tree;
    std::function<void(const TreeDrop&)> m_onDrop;
    NodeRef m_dropNode;
    NodeRef m_highlight;
    NodeRef m_savedSelection;
    Qt::MouseButtons m_keyState;  // when the drag entered
    std::string m_strDropText;
    int m_nHoverCount = 0;
    QTimer m_hoverTimer;
    QAbstractSlider::SliderAction m_scrollAction = QAbstractSlider::SliderNoAction;
    QTimer m_scrollTimer;
    QPoint m_position;  // of the drag
};

}  // namespace quorbit
