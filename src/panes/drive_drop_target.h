// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Handles drags over the drive tree: highlights and expands nodes, scrolls, and records what was
// dropped. User interface thread only.

#pragma once

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QTimer>
#include <functional>
#include <optional>
#include <string>

#include "panes/drag_payload.h"
#include "panes/node_ref.h"

namespace quorbit {

// A drop of a drag from one of the panes onto a node.
struct TreeDrop {
    DragContent content;
    std::string destPath;  // of the node, as bytes
    QPoint position;       // in the viewport
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
    // Accepts drags from the panes over nodes that have a path. Highlights the node under any drag
    // and expands it after two seconds.
    void Move(QDragMoveEvent& event);
    void Leave();
    void Drop(QDropEvent& event);

private:
    // Returns the path of the node under the drag; nullopt if there is none.
    [[nodiscard]] std::optional<std::string> Destination() const;
    void Hover(const QPoint& position);
    void OnHoverTick();
    void StopHover();
    void Scroll(int y);
    void OnScrollTick();
    void EndDrag();

    ShellTree& m_tree;
    std::function<void(const TreeDrop&)> m_onDrop;
    NodeRef m_highlight;  // the node under the drag
    NodeRef m_savedSelection;
    Qt::MouseButtons m_keyState;  // buttons when the drag entered
    int m_nHoverCount = 0;
    QTimer m_hoverTimer;
    QAbstractSlider::SliderAction m_scrollAction = QAbstractSlider::SliderNoAction;
    QTimer m_scrollTimer;
    QPoint m_position;  // of the drag
};

}  // namespace quorbit
