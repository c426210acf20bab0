// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Performs a run: the count pass, the process pass and the totals. Worker thread only.

#pragma once

#include "engine/run_context.h"

namespace quorbit {

// The worker thread function. Runs the batch of the context and writes the log from head to footer.
// With kRunInvisible or kRunAndQuit, the last call is OnPhase(Closed), after which the context may
// no longer exist. Always returns 0.
unsigned RunThreadProc(CRunContext* pCtx);

// Performs the count pass. Returns false if a stop was requested, and true otherwise, even if the
// user gave up counting.
[[nodiscard]] bool CountEntries(CRunContext& ctx);
// Performs the process pass. Returns false if a stop ended it.
[[nodiscard]] bool ProcessEntries(CRunContext& ctx);

}  // namespace quorbit
