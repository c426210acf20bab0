// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Gives a new item what its source has besides the content. All of it works on open descriptors.
//
// What the destination cannot hold or the user may not set is left out without an error; a full or
// failing disk is one.

#pragma once

#include <sys/stat.h>

#include "platform/error.h"

namespace quorbit {

// True if owner and group are now those of the source. At least the group is tried.
Result<bool> CopyOwnership(int to, const struct stat& source, uid_t owner, gid_t group);

struct AttributeCopy {
    bool inheritedAcl = false;  // the new item may carry a list that its folder gave it: it goes
    bool dropCapabilities = false;  // no file capabilities, see capabilities(7)
    // The permissions that the new item is to get, may be null. Where an access control list cannot
    // be kept, the group's are cut down to what the list gives to the group itself.
    mode_t* mode = nullptr;
};

// Copies the extended attributes, access control lists among them.
Status CopyExtendedAttributes(int from, int to, const AttributeCopy& options);

// Sets the permission bits, see chmod(2).
Status SetMode(int to, mode_t mode);

// Sets the last-write time and leaves the last-access time alone. On volumes that keep even seconds
// only, the time is rounded up, so that the source never looks newer than its copy.
Status SetModified(int to, const struct stat& source, bool evenSeconds);

// The same time as SetModified sets.
[[nodiscard]] timespec ModifiedOfCopy(const struct stat& source, bool evenSeconds);

// An error that only says that something cannot be kept at the destination.
[[nodiscard]] bool CannotBeKept(int code);

}  // namespace quorbit
