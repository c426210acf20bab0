// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Properties of a mounted file system: determined once, then cached.

#pragma once

#include <sys/types.h>

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>

#include "platform/posix/attribute_source.h"

namespace quorbit {

// Calls that a pair of file systems has refused, so that they are not tried again. Any thread.
struct TransferFacts {
    std::atomic<bool> cloneRefused = false;  // FICLONE
    std::atomic<bool> rangeRefused = false;  // copy_file_range(2)
};

// Any thread: what is not constant is atomic or has a lock.
struct PosixVolume {
    dev_t device = 0;
    std::uint32_t type = 0;         // f_type of statfs(2), 0 if unknown
    bool syncsAtOnce = false;       // syncfs(2) writes everything to the disk
    bool closeTells = true;         // write errors may only be reported by close(2)
    bool casePerFolder = false;     // a folder may ignore the case of names while others do not
    bool keepsEvenSeconds = false;  // last-write times have a resolution of two seconds
    std::atomic<bool> takesAnonymousFiles = true;  // O_TMPFILE works; cleared when it fails
    std::atomic<bool> triedAnonymousFiles = false;
    // linkat(2) with AT_EMPTY_PATH works; cleared when it fails
    std::atomic<bool> linksByDescriptor = true;
    std::unique_ptr<AttributeSource> attributes;

    // Returns the facts about copies from a device. Valid for the lifetime of the volume.
    TransferFacts& TransfersFrom(dev_t source)
    {
        const std::lock_guard lock(m_mutex);
        return m_transfersFrom[source];
    }

private:
    std::mutex m_mutex;
    std::map<dev_t, TransferFacts> m_transfersFrom;
};

class VolumeTable {
public:
    // Returns the volume of an open folder. The reference is valid for the lifetime of the table.
    // device: st_dev of the folder.
    PosixVolume& Of(dev_t device, int folder);

private:
    std::map<dev_t, PosixVolume> m_volumes;
};

}  // namespace quorbit
