// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Handles drags over the drive tree: highlights and expands nodes, scrolls, and records what was
// dropped. User interface thread only.

#pragma once

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QTimer>
#include <functional>
#include <string>

#include "panes/node_ref.h"

namespace quorbit {

// A drop of a drag from one of the panes onto a node.
struct TreeDrop {
    NodeRef node;
    QPoint position;  // in the viewport
    bool rightButton = false;
};

class DriveDropTarget {
public:
    // `tree` must outlive this object. onDrop is called from the event loop after the drop event
    // has returned, so that the source of the drag is not blocked.
    DriveDropTarget(ShellTree& tree, std::function<void(const TreeDrop&)> onDrop);

    // Records the button of the drag: the pressed buttons, or if the platform reports none, the one
    // stored in the data.
    void Enter(QDragEnterEvent& event);
    // Accepts drags from the panes over any node but the root node. Highlights the node under any
    // drag and expands it after two seconds.
    void Move(QDragMoveEvent& event);
    void Leave();
    void Drop(QDropEvent& event);

    // The destination: the last node under a drag, also after the drag has ended. Null if there is
    // none or it was removed.
    [[nodiscard]] ShellTreeNode* DropNode() const { return m_dropNode.Get(); }
    // The last drop: D and a path, or F and names. Empty if the drop was not accepted.
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
    Qt::MouseButtons m_keyState;  // buttons when the drag entered
    std::string m_strDropText;
    int m_nHoverCount = 0;
    QTimer m_hoverTimer;
    QAbstractSlider::SliderAction m_scrollAction = QAbstractSlider::SliderNoAction;
    QTimer m_scrollTimer;
    QPoint m_position;  // of the drag
};

}  // namespace quorbit
