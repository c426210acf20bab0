// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Deletes unfinished copies of dead runs.

#pragma once

#include "platform/posix/posix_folder.h"

namespace quorbit {

// Deletes the items of our own name pattern in the folder that no live run holds locked. What
// cannot be locked (links, special files, file systems without flock(2)) goes when it is a day old.
// Folders are never ours.
void SweepLeftovers(const PosixFolder& folder);

}  // namespace quorbit
