// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Copies the metadata of an item to a new one: owner, extended attributes, ACLs, permissions and
// time. Works on open descriptors. Any thread.
//
// Metadata that the destination cannot store, or that the user may not set, is skipped without an
// error. An extended attribute that does not fit is skipped and named. A failing disk is an error.

#pragma once

#include <sys/stat.h>

#include <string>
#include <vector>

#include "platform/error.h"

namespace quorbit {

constexpr mode_t kPermissions = 0777;  // of owner, group and others

// Returns true if owner and group are now those of the source. If the owner cannot be set, at least
// sets the group. owner, group: those of the new item.
Result<bool> CopyOwnership(int to, const struct stat& source, uid_t owner, gid_t group);

struct AttributeCopy {
    bool inheritedAcl = false;      // remove an ACL that the new item inherited from its folder
    bool dropCapabilities = false;  // do not copy file capabilities, see capabilities(7)
    // Permissions for the new item; may be null. If its ACL cannot be copied, the group bits are
    // reduced to those of the ACL's owning group entry.
    mode_t* mode = nullptr;
    // Receives the attributes that do not fit and why, as FileSystem::TakeNotKept returns them; may
    // be null.
    std::vector<std::string>* notKept = nullptr;
};

// Copies the extended attributes, including ACLs.
Status CopyExtendedAttributes(int from, int to, const AttributeCopy& options);

// Sets the permission bits with fchmod(2).
Status SetMode(int to, mode_t mode);

// Sets the last-write time and leaves the last-access time unchanged. On volumes that store only
// even seconds, rounds the time up, so that the source never looks newer than its copy.
Status SetModified(int to, const struct stat& source, bool evenSeconds);

// Returns the time that SetModified sets.
[[nodiscard]] timespec ModifiedOfCopy(const struct stat& source, bool evenSeconds);

// Returns true if the errno value means that an extended attribute does not fit at the destination:
// file systems limit the size of one value, of all, or of their number (xattr(7)).
[[nodiscard]] bool IsTooLarge(int code);

// Returns true if the errno value only means that the destination cannot store the metadata.
[[nodiscard]] bool CannotBeKept(int code);

}  // namespace quorbit
