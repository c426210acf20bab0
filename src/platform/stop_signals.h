// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Process-wide settings of a program that must not be ended in the middle of a file.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace quorbit {

// Calls a function when the process is asked to stop (SIGINT, SIGTERM, SIGHUP), instead of ending
// the process. At most one object in a process.
class StopSignals {
public:
    // onStop is called in a thread of its own, once for signals that come close together. A signal
    // that the process was started with as ignored (nohup) stays ignored. If the system has no
    // descriptors or threads left, signals keep their default.
    explicit StopSignals(std::function<void()> onStop);
    // Waits for a call in progress. Later signals are ignored.
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

private:
    class Catcher;
    std::unique_ptr<Catcher> m_catcher;  // null if signals keep their default
};

// Writing to a closed pipe or beyond a size limit becomes an error of the write instead of the end
// of the process.
void IgnoreWriteSignals();

// Allows as many open files as the system permits, at most 65,536, since a walk holds some for
// every level of a tree. Returns the soft limit that stood before, for the programs that are
// started.
std::uint64_t RaiseOpenFileLimit();

}  // namespace quorbit
