// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Properties of a mounted file system: determined once, then cached.

#pragma once

#include <sys/types.h>

#include <cstdint>
#include <map>
#include <memory>

#include "platform/posix/attribute_source.h"

namespace quorbit {

// Calls that a pair of file systems has refused, so that they are not tried again.
struct TransferFacts {
    bool cloneRefused = false;  // FICLONE
    bool rangeRefused = false;  // copy_file_range(2)
};

struct PosixVolume {
    dev_t device = 0;
    std::uint32_t type = 0;      // f_type of statfs(2), 0 if unknown
    bool ordersRenames = false;  // file content reaches the disk before a rename over another file
    bool closeTells = true;      // write errors may only be reported by close(2)
    bool keepsEvenSeconds = false;    // last-write times have a resolution of two seconds
    bool takesAnonymousFiles = true;  // O_TMPFILE works; cleared when it fails
    bool linksByDescriptor = true;    // linkat(2) with AT_EMPTY_PATH works; cleared when it fails
    std::unique_ptr<AttributeSource> attributes;
    std::map<dev_t, TransferFacts> transfersFrom;  // by source device
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
