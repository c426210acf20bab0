// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Process-wide signal and limit settings, so that a run is not killed in the middle of a file.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace quorbit {

// The signals that ask the process to end.
enum class StopSignal { Interrupt, Terminate, HangUp };

// Returns "SIGINT", "SIGTERM" or "SIGHUP".
[[nodiscard]] const char* NameOf(StopSignal signal);

// Calls a function on SIGINT, SIGTERM or SIGHUP instead of ending the process. At most one object
// per process.
class StopSignals {
public:
    // onStop is called in a dedicated thread, once for each signal that the system delivers.
    // Signals that were ignored at start (nohup(1)) stay ignored. If the system has no free
    // descriptors or threads, signals keep their default action.
    explicit StopSignals(std::function<void(StopSignal)> onStop);
    // Waits for a call in progress. Signals that arrive later are ignored.
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

private:
    class Catcher;
    std::unique_ptr<Catcher> m_catcher;  // null if signals keep their default action
};

// Ignores SIGPIPE and SIGXFSZ: writing to a closed pipe or beyond a size limit then fails instead
// of ending the process.
void IgnoreWriteSignals();

// Raises the limit of open files to the hard limit, at most 65,536, since a walk keeps several open
// for every level of a tree. Returns the previous soft limit, which started programs should get.
std::uint64_t RaiseOpenFileLimit();
// Returns the current limit of open files.
std::uint64_t OpenFileLimit();

}  // namespace quorbit
