// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Stop signals for a program with an event loop.

#pragma once

#include "platform/error.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

// From now on each SIGINT, SIGTERM and SIGHUP becomes a byte that can be read from the descriptor,
// instead of ending the process. Reading does not block. A signal that the process was started with
// as ignored (nohup) stays ignored. Call it once, and keep the descriptor for as long as the
// process lives.
Result<UniqueFd> CatchStopSignals();

}  // namespace quorbit
