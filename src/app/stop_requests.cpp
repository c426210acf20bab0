// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/stop_requests.h"

#include <string>

#include "engine/run_flags.h"

namespace quorbit {

void StopRequests::OnSignal(StopSignal signal)
{
    switch (++m_nSignals) {
        case 1:
            break;
        case 2:
            return m_run.m_pProcesses->PassOn(signal);
        default:
            return m_run.m_pProcesses->Kill();
    }
    // The run sets the flag itself at its sixth error and when it has ended.
    if (g_bStopRun.exchange(1) == 0) {
        m_bStopped = true;
        m_run.m_clock.Stop();
        m_surface.Announce(std::string("stopped by ") + NameOf(signal) +
                           ", after the current file or script");
    }
}

}  // namespace quorbit
