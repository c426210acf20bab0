// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// One run: the count pass, the process pass, the totals.

#pragma once

#include "engine/run_context.h"

namespace quorbit {

// The body of the worker thread: takes the document of the context through one run, from the head
// of the log to its footer. In the modes that end by themselves it closes the surface last, after
// which the context may be gone. Always returns 0.
unsigned RunThreadProc(CRunContext* pCtx);

// The count pass. False if a stop was found; true otherwise, also when the count was given up.
[[nodiscard]] bool CountEntries(CRunContext& ctx);
// The process pass. False if a stop ended it.
[[nodiscard]] bool ProcessEntries(CRunContext& ctx);

}  // namespace quorbit
