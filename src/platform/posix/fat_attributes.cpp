// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/fat_attributes.h"

#include <fcntl.h>
#include <linux/msdos_fs.h>
#include <sys/ioctl.h>

#include <cerrno>
#include <utility>

#include "platform/posix/system_call.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

namespace {

// Returns the item's own descriptor if it is open, otherwise opens the item and stores the
// descriptor in `opened`.
Result<int> DescriptorOf(const AttributeItem& item, UniqueFd& opened)
{
    if (item.descriptor >= 0) {
        return item.descriptor;
    }
    opened = UniqueFd(RetryInterrupted([&] {
        return ::openat(item.folder, item.name.c_str(),
                        O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    }));
    if (!opened.IsOpen()) {
        return LastError();
    }
    return opened.Get();
}

}  // namespace

Result<std::uint32_t> FatAttributeIoctl::Get(int descriptor)
{
    std::uint32_t word = 0;
    if (::ioctl(descriptor, FAT_IOCTL_GET_ATTRIBUTES, &word) != 0) {
        return LastError();
    }
    return word;
}

Status FatAttributeIoctl::Set(int descriptor, std::uint32_t word)
{
    return ::ioctl(descriptor, FAT_IOCTL_SET_ATTRIBUTES, &word) == 0 ? Status() : LastError();
}

Result<std::optional<std::uint32_t>> FatAttributes::Read(const AttributeItem& item)
{
    UniqueFd opened;
    const Result<int> descriptor = DescriptorOf(item, opened);
    if (!descriptor) {
        return descriptor.GetError();
    }
    const Result<std::uint32_t> word = m_control->Get(*descriptor);
    if (word) {
        return std::optional(*word & kStoredAttributes);
    }
    // Older exFAT drivers do not implement this ioctl.
    return word.GetError().Kind() == ErrorKind::NotSupported
               ? Result<std::optional<std::uint32_t>>(std::nullopt)
               : word.GetError();
}

Status FatAttributes::Write(const AttributeItem& item, std::uint32_t bits)
{
    UniqueFd opened;
    const Result<int> descriptor = DescriptorOf(item, opened);
    if (!descriptor) {
        return descriptor.GetError();
    }
    const Result<std::uint32_t> old = m_control->Get(*descriptor);
    if (!old) {
        return old.GetError();
    }
    // Keep the other bits: volume label and folder cannot be changed, but the driver may expect the
    // folder bit of a folder to be set.
    const std::uint32_t kept = *old & ~kStoredAttributes;
    return m_control->Set(*descriptor, kept | (bits & kStoredAttributes));
}

}  // namespace quorbit
