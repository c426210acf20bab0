// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Process-wide settings of a program that must not be ended in the middle of a file.

#pragma once

#include <atomic>
#include <cstdint>

namespace quorbit {

// From now on SIGINT, SIGTERM and SIGHUP set the flag to 1 instead of ending the process. A signal
// that the process was started with as ignored (nohup) stays ignored. flag must outlive the
// process's last signal.
void StopOnSignals(std::atomic<int>& flag);

// Writing to a closed pipe or beyond a size limit becomes an error of the write instead of the end
// of the process.
void IgnoreWriteSignals();

// Allows as many open files as the system permits, at most 65,536, since a walk holds some for
// every level of a tree. Returns the soft limit that stood before, for the programs that are
// started.
std::uint64_t RaiseOpenFileLimit();

}  // namespace quorbit
