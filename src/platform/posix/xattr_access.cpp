// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/xattr_access.h"

#include <fcntl.h>
#include <sys/xattr.h>

#include "platform/posix/system_call.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

namespace {

// getxattrat(2) only exists since Linux 6.13. This path refers to the open folder even if the
// folder was renamed.
std::string PathOf(const AttributeItem& item)
{
    return "/proc/self/fd/" + std::to_string(item.folder) + "/" + item.name;
}

UniqueFd OpenItem(const AttributeItem& item)
{
    return UniqueFd(RetryInterrupted([&] {
        return ::openat(item.folder, item.name.c_str(),
                        O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    }));
}

// Makes the call by descriptor if the item is open, otherwise by path. If /proc is not mounted
// (ENOENT), opens the item.
template <class ByDescriptor, class ByPath>
ssize_t Call(const AttributeItem& item, ByDescriptor byDescriptor, ByPath byPath)
{
    if (item.descriptor >= 0) {
        return byDescriptor(item.descriptor);
    }
    const ssize_t result = byPath(PathOf(item).c_str());
    if (result >= 0 || errno != ENOENT) {
        return result;
    }
    const UniqueFd opened = OpenItem(item);
    return opened.IsOpen() ? byDescriptor(opened.Get()) : -1;
}

}  // namespace

Result<std::string> GetItemXattr(const AttributeItem& item, const char* attribute,
                                 std::size_t maxSize)
{
    std::string value(maxSize, '\0');
    const ssize_t size = Call(
        item, [&](int fd) { return ::fgetxattr(fd, attribute, value.data(), value.size()); },
        [&](const char* path) { return ::lgetxattr(path, attribute, value.data(), value.size()); });
    if (size < 0) {
        return LastError();
    }
    value.resize(static_cast<std::size_t>(size));
    return value;
}

Status SetItemXattr(const AttributeItem& item, const char* attribute, std::string_view value)
{
    const ssize_t done = Call(
        item,
        [&](int fd) { return ssize_t{::fsetxattr(fd, attribute, value.data(), value.size(), 0)}; },
        [&](const char* path) {
            return ssize_t{::lsetxattr(path, attribute, value.data(), value.size(), 0)};
        });
    return done == 0 ? Status() : LastError();
}

}  // namespace quorbit
