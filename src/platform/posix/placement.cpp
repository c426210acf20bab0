// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/placement.h"

#include <cerrno>

#include "platform/posix/item_attributes.h"
#include "platform/posix/item_details.h"
#include "platform/posix/system_call.h"

namespace quorbit {

Result<bool> Placement::Check() const
{
    const Result<struct stat> details = StatAt(folder.Descriptor(), name);
    if (!details) {
        const bool missing = details.GetError().Kind() == ErrorKind::Missing;
        if (missing && options.replaces) {
            return Error(ErrorKind::Changed);
        }
        return missing ? Result<bool>(false) : details.GetError();
    }
    if (details->st_dev == sourceDevice && details->st_ino == sourceInode) {
        return Error(ErrorKind::SameFile, "Source and destination are the same file");
    }
    if (S_ISDIR(details->st_mode)) {
        return ErrorFromErrno(EISDIR);
    }
    if (options.mustBeMissing) {
        return ErrorFromErrno(EEXIST);
    }
    if (options.replaces && !IsSameItem(*details, *options.replaces)) {
        return Error(ErrorKind::Changed);
    }
    if (S_ISREG(details->st_mode) && !options.replaceReadOnly) {
        const Result<bool> readOnly = IsReadOnly(*details);
        if (!readOnly) {
            return readOnly.GetError();
        }
        if (*readOnly) {
            return ErrorFromErrno(EACCES);
        }
    }
    return true;
}

// Neither rename(2) nor root's write access respects a read-only file that is replaced, so check
// explicitly.
Result<bool> Placement::IsReadOnly(const struct stat& details) const
{
    if ((details.st_mode & S_IWUSR) == 0) {
        return true;
    }
    const AttributeItem item{folder.Descriptor(), name, ItemKind::File};
    const Result<std::uint32_t> bits =
        ReadAttributeBits(*folder.Volume().attributes, item, details.st_mode);
    if (!bits) {
        return bits.GetError();
    }
    return (*bits & kAttributeReadOnly) != 0;
}

bool IsSameItem(const struct stat& details, const FindData& item)
{
    FindData now;
    FillDetails(details, now);
    return now.device == item.device && now.inode == item.inode && now.size == item.size &&
           now.modified == item.modified && now.modifiedNsec == item.modifiedNsec;
}

}  // namespace quorbit
