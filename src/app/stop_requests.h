// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Carries out the stop signals of an unattended run. Any thread.

#pragma once

#include <atomic>

#include "engine/console_surface.h"
#include "engine/run_context.h"
#include "platform/stop_signals.h"

namespace quorbit {

class StopRequests {
public:
    // Both must outlive this object. The run must have its process runner.
    StopRequests(CRunContext& run, ConsoleSurface& surface) : m_run(run), m_surface(surface) {}

    // The first signal stops the run after the current file or script, says so on standard error
    // and stops the clock. The second is passed on to the script that runs, if one does. Each
    // further one ends the script at once. Signals after the end of the run have no effect.
    void OnSignal(StopSignal signal);

    // Returns true if a signal came before the run had ended.
    [[nodiscard]] bool Stopped() const { return m_bStopped; }

private:
    CRunContext& m_run;
    ConsoleSurface& m_surface;
    std::atomic<bool> m_bStopped = false;
    int m_nSignals = 0;  // used by the thread of the signals only
};

}  // namespace quorbit
