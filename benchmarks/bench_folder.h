// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The folder that the measurements work in: trees, copies, batch files, and settings of Quorbit
// that are not the user's own.

#pragma once

#include <string>

#include "batch/dir_copy.h"
#include "benchmarks/options.h"
#include "benchmarks/timed_run.h"

namespace quorbit::bench {

// When a run of Quorbit is over.
enum class Ending {
    OnDisk,        // as it ships: once what was copied is on the disk
    LeftToSystem,  // as cp and rsync: the system writes it when it likes
};

class BenchFolder {
public:
    // Makes the folder, unless it is there from an earlier call, and goes through Quorbit's first
    // start for both endings.
    explicit BenchFolder(const Options& options);

    [[nodiscard]] const Options& GetOptions() const { return m_options; }
    [[nodiscard]] std::string TreePath(const std::string& name) const;
    // Where a copy goes. Names are free again after ClearCopies.
    [[nodiscard]] std::string CopyPath(const std::string& name) const;
    // Deletes all copies and drops the system's caches if that is allowed.
    void ClearCopies() const;
    // The command that runs a batch of this entry.
    [[nodiscard]] Command QuorbitCommand(const CDirCopy& entry, Ending ending,
                                         const std::string& mode = "/I") const;

    // Until nothing is left to be written, so that no run pays for the one before.
    void Settle() const;
    [[nodiscard]] bool CanDropCaches() const;
    void DropCaches() const;

private:
    void ClaimFolder() const;
    [[nodiscard]] std::string SettingsPath(Ending ending) const;
    [[nodiscard]] Command Quorbit(Ending ending) const;

    const Options& m_options;
};

}  // namespace quorbit::bench
