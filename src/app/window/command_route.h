// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Routes commands to their targets: the active view, the document, its file, the frame, the
// application, and then the other views, so that the commands of a pane work while another pane has
// the focus. User interface thread only.

#pragma once

#include <utility>
#include <vector>

#include "document/command_target.h"
#include "document/qrb_doc.h"

namespace quorbit {

class CommandRoute {
public:
    // targets: tried in this order, after the active view and before the other views. Not owned;
    // doc and targets must outlive this object.
    CommandRoute(CQRBDoc& doc, std::vector<CommandTarget*> targets)
        : m_doc(doc), m_targets(std::move(targets))
    {
    }

    // Sets the view that had the focus last, or null. Not owned; reset it before it is destroyed.
    void SetActiveView(CView* view) { m_pActiveView = view; }
    [[nodiscard]] CView* ActiveView() const { return m_pActiveView; }

    // Executes a command. Returns false if no target handles it.
    bool OnCmdMsg(int nId);
    // Returns the state of a command. A command without a target is disabled.
    [[nodiscard]] CommandState StateOf(int nId);

private:
    CQRBDoc& m_doc;
    std::vector<CommandTarget*> m_targets;
    CView* m_pActiveView = nullptr;
};

}  // namespace quorbit
