// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What is known of one mounted file system: asked or found out once, then remembered.

#pragma once

#include <sys/types.h>

#include <cstdint>
#include <map>
#include <memory>

#include "platform/posix/attribute_source.h"

namespace quorbit {

// What a pair of file systems turned out not to do for each other.
struct TransferFacts {
    bool cloneRefused = false;  // FICLONE
    bool rangeRefused = false;  // copy_file_range(2)
};

struct PosixVolume {
    dev_t device = 0;
    std::uint32_t type = 0;  // f_type of statfs(2), 0 if it could not be told
    bool ordersRenames =
        false;  // has the content of a file on the disk before a rename that puts it over another
    bool closeTells = true;           // write errors may first show when a descriptor is closed
    bool keepsEvenSeconds = false;    // last-write times in steps of two seconds
    bool takesAnonymousFiles = true;  // O_TMPFILE; until it turns out otherwise
    bool linksByDescriptor = true;    // AT_EMPTY_PATH of linkat(2), likewise
    std::unique_ptr<AttributeSource> attributes;
    std::map<dev_t, TransferFacts> transfersFrom;  // by the source's device
};

class VolumeTable {
public:
    // The volume of an open folder. The reference stays good for as long as the table does.
    PosixVolume& Of(dev_t device, int folder);

private:
    std::map<dev_t, PosixVolume> m_volumes;
};

}  // namespace quorbit
