// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Deletes unfinished copies of runs that were killed.

#pragma once

#include "platform/posix/posix_folder.h"

namespace quorbit {

// Deletes the items with a name of our pattern (see leftover_name.h) that no running process has
// locked, and of such folders what has a name of our pattern; a folder that then is not empty
// stays. Items that cannot be locked (links, special files, everything on file systems without
// flock(2)) are deleted when they are a day old. Errors are ignored.
void SweepLeftovers(const PosixFolder& folder);

}  // namespace quorbit
