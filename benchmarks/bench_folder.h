// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The working folder of the benchmarks: trees, copies, batch files, and settings separate from
// those of the user. Errors end the process, see GiveUp. One thread at a time.

#pragma once

#include <string>

#include "batch/dir_copy.h"
#include "benchmarks/options.h"
#include "benchmarks/timed_run.h"

namespace quorbit::bench {

// The end of a run of Quorbit.
enum class Ending {
    OnDisk,        // the default: after the copies are on the disk
    LeftToSystem,  // like cp and rsync: without waiting for the disk
};

class BenchFolder {
public:
    // Creates the folder unless it exists from an earlier call, and runs Quorbit's setup for both
    // endings. Gives up if the folder contains other files. options must outlive this object.
    explicit BenchFolder(const Options& options);

    [[nodiscard]] const Options& GetOptions() const { return m_options; }
    [[nodiscard]] std::string TreePath(const std::string& name) const;
    // Returns the path for a copy. Names can be reused after ClearCopies.
    [[nodiscard]] std::string CopyPath(const std::string& name) const;
    // Deletes all copies, then drops the caches of the system if there were any copies and the
    // process may do so.
    void ClearCopies() const;
    // Writes a batch file with the entry and returns the command that runs it. mode: "/I", "/VS".
    // The next call with the same ending replaces the file.
    [[nodiscard]] Command QuorbitCommand(const CDirCopy& entry, Ending ending,
                                         const std::string& mode = "/I") const;

    // Waits until all data is on the disk, so that a run is not slowed by the writes of an earlier
    // one.
    void Settle() const;
    // Dropping the caches requires root, see /proc/sys/vm/drop_caches in proc(5).
    [[nodiscard]] bool CanDropCaches() const;
    void DropCaches() const;

private:
    void ClaimFolder() const;
    [[nodiscard]] std::string SettingsPath(Ending ending) const;
    [[nodiscard]] Command Quorbit(Ending ending) const;

    const Options& m_options;
};

}  // namespace quorbit::bench
