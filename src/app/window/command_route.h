// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The way of a command: the active view, the document, the frame, the application, and then the
// other views, so that a pane's commands work while another pane has the focus. User interface
// thread only.

#pragma once

#include <utility>
#include <vector>

#include "document/command_target.h"
#include "document/qrb_doc.h"

namespace quorbit {

class CommandRoute {
public:
    // targets: what is asked between the active view and the other views, in this order. Nothing is
    // owned, all of it outlives the route.
    CommandRoute(CQRBDoc& doc, std::vector<CommandTarget*> targets)
        : m_doc(doc), m_targets(std::move(targets))
    {
    }

    // The view that had the focus last; null for none. It must not stay here when it goes.
    void SetActiveView(CView* view) { m_pActiveView = view; }
    [[nodiscard]] CView* ActiveView() const { return m_pActiveView; }

    // False if nobody takes the command.
    bool OnCmdMsg(int nId);
    // How the command stands. One that nobody takes is disabled.
    [[nodiscard]] CommandState StateOf(int nId);

private:
    CQRBDoc& m_doc;
    std::vector<CommandTarget*> m_targets;
    CView* m_pActiveView = nullptr;
};

}  // namespace quorbit
