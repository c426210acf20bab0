// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/command_route.h"

#include <algorithm>

namespace quorbit {

bool CommandRoute::OnCmdMsg(int nId)
{
    return (m_pActiveView != nullptr && m_pActiveView->OnCommand(nId)) ||
           std::any_of(m_targets.begin(), m_targets.end(),
                       [nId](CommandTarget* target) { return target->OnCommand(nId); }) ||
           m_doc.RouteCmdToViews(m_pActiveView, nId);
}

CommandState CommandRoute::StateOf(int nId)
{
    CommandState state;
    const bool known =
        (m_pActiveView != nullptr && m_pActiveView->OnUpdateCommand(nId, state)) ||
        std::any_of(m_targets.begin(), m_targets.end(),
                    [&](CommandTarget* target) { return target->OnUpdateCommand(nId, state); }) ||
        m_doc.RouteUpdateToViews(m_pActiveView, nId, state);
    state.enabled = state.enabled && known;
    return state;
}

}  // namespace quorbit
