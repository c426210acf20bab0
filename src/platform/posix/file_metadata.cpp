// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/file_metadata.h"

#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

constexpr const char* kAccessAcl = "system.posix_acl_access";
constexpr const char* kDefaultAcl = "system.posix_acl_default";
constexpr std::string_view kCapabilities = "security.capability";
// Bytes that suffice for most name lists and nearly all values, so that no memory is allocated.
constexpr std::size_t kUsualSize = 4096;

Status Tolerate(int result)
{
    return result == 0 || CannotBeKept(errno) ? Status() : LastError();
}

// Returns the names of all extended attributes, each terminated by NUL.
Result<std::string_view> ListNames(int from, std::array<char, kUsualSize>& usual,
                                   std::vector<char>& large)
{
    ssize_t size = ::flistxattr(from, usual.data(), usual.size());
    if (size >= 0) {
        return std::string_view(usual.data(), static_cast<std::size_t>(size));
    }
    if (errno == ERANGE) {
        large.resize(XATTR_LIST_MAX);
        size = ::flistxattr(from, large.data(), large.size());
        if (size >= 0) {
            return std::string_view(large.data(), static_cast<std::size_t>(size));
        }
    }
    if (CannotBeKept(errno)) {
        return std::string_view();
    }
    return LastError();
}

// Returns true if the attribute was copied.
Result<bool> CopyOne(int from, int to, const char* name, std::vector<std::string>* notKept)
{
    std::array<char, kUsualSize> usual;
    std::vector<char> large;
    const char* value = usual.data();
    ssize_t size = ::fgetxattr(from, name, usual.data(), usual.size());
    if (size < 0 && errno == ERANGE) {
        large.resize(XATTR_SIZE_MAX);
        value = large.data();
        size = ::fgetxattr(from, name, large.data(), large.size());
    }
    const bool copied =
        size >= 0 && ::fsetxattr(to, name, value, static_cast<std::size_t>(size), 0) == 0;
    if (!copied && IsTooLarge(errno)) {
        // The content is worth more than the attribute.
        if (notKept != nullptr) {
            notKept->push_back(std::string(name) + ": " + LastError().Text());
        }
        return false;
    }
    // ENODATA: the attribute was removed in the meantime.
    if (!copied && !CannotBeKept(errno) && errno != ENODATA) {
        return LastError();
    }
    return copied;
}

// Returns the permissions of an ACL's owning group entry as mode bits. In a file with an ACL, the
// group bits of the mode contain the mask instead, the union of all entries (acl(5)). Layout:
// <linux/posix_acl_xattr.h>, little endian.
mode_t GroupModeOfAcl(int from)
{
    constexpr std::size_t kHeader = 4;
    constexpr std::size_t kEntry = 8;
    constexpr int kGroupOfFile = 0x04;
    std::array<unsigned char, kUsualSize> acl;
    const ssize_t size = ::fgetxattr(from, kAccessAcl, acl.data(), acl.size());
    for (std::size_t at = kHeader; size >= 0 && at + kEntry <= static_cast<std::size_t>(size);
         at += kEntry) {
        if (acl[at] == kGroupOfFile && acl[at + 1] == 0) {
            return static_cast<mode_t>((acl[at + 2] & 07) << 3);
        }
    }
    return 0;
}

void RemoveInherited(int to, const char* name)
{
    (void)::fremovexattr(to, name);
}

}  // namespace

bool CannotBeKept(int code)
{
    return code == EOPNOTSUPP || code == ENOSYS || code == EPERM || code == EACCES ||
           code == EINVAL;
}

bool IsTooLarge(int code)
{
    return code == ENOSPC || code == EDQUOT || code == E2BIG || code == ERANGE || code == EDOM;
}

Result<bool> CopyOwnership(int to, const struct stat& source, uid_t owner, gid_t group)
{
    if (source.st_uid == owner && source.st_gid == group) {
        return true;
    }
    if (::fchown(to, source.st_uid, source.st_gid) == 0) {
        return true;
    }
    if (!CannotBeKept(errno)) {
        return LastError();
    }
    // Only root may change the owner, but a user may set any group that they belong to.
    const bool groupKept =
        source.st_gid == group || ::fchown(to, static_cast<uid_t>(-1), source.st_gid) == 0;
    return groupKept && source.st_uid == owner;
}

Status CopyExtendedAttributes(int from, int to, const AttributeCopy& options)
{
    std::array<char, kUsualSize> usual;
    std::vector<char> large;
    const Result<std::string_view> names = ListNames(from, usual, large);
    if (!names) {
        return names.GetError();
    }
    bool accessAcl = false;
    bool defaultAcl = false;
    for (std::string_view rest = *names; !rest.empty();) {
        const char* name = rest.data();
        const std::size_t length = ::strnlen(name, rest.size());
        rest.remove_prefix(std::min(length + 1, rest.size()));
        if (options.dropCapabilities && kCapabilities == name) {
            continue;
        }
        accessAcl = accessAcl || std::strcmp(name, kAccessAcl) == 0;
        defaultAcl = defaultAcl || std::strcmp(name, kDefaultAcl) == 0;
        const Result<bool> copied = CopyOne(from, to, name, options.notKept);
        if (!copied) {
            return copied.GetError();
        }
        if (!*copied && options.mode != nullptr && std::strcmp(name, kAccessAcl) == 0) {
            *options.mode = (*options.mode & ~mode_t{S_IRWXG}) | GroupModeOfAcl(from);
        }
    }
    if (options.inheritedAcl && !accessAcl) {
        RemoveInherited(to, kAccessAcl);
    }
    if (options.inheritedAcl && !defaultAcl) {
        RemoveInherited(to, kDefaultAcl);
    }
    return {};
}

Status SetMode(int to, mode_t mode)
{
    return Tolerate(::fchmod(to, mode));
}

timespec ModifiedOfCopy(const struct stat& source, bool evenSeconds)
{
    timespec modified = source.st_mtim;
    if (evenSeconds) {
        modified.tv_sec += modified.tv_nsec > 0 ? 1 : 0;
        modified.tv_sec += modified.tv_sec % 2 != 0 ? 1 : 0;
        modified.tv_nsec = 0;
    }
    return modified;
}

Status SetModified(int to, const struct stat& source, bool evenSeconds)
{
    const timespec times[2] = {{0, UTIME_OMIT}, ModifiedOfCopy(source, evenSeconds)};
    return Tolerate(::futimens(to, times));
}

}  // namespace quorbit
