// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/posix_listing.h"

#include <dirent.h>
#include <sys/syscall.h>

#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

#include "platform/leftover_name.h"
#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

constexpr std::size_t kListingBufferSize = std::size_t{32} * 1024;

ItemKind KindFromType(unsigned char type)
{
    switch (type) {
        case DT_UNKNOWN:
            return ItemKind::Unknown;
        case DT_REG:
            return ItemKind::File;
        case DT_DIR:
            return ItemKind::Folder;
        case DT_LNK:
            return ItemKind::Link;
        default:
            return ItemKind::Special;
    }
}

}  // namespace

PosixListing::PosixListing(std::shared_ptr<const UniqueFd> descriptor)
    : m_descriptor(std::move(descriptor)),
      m_buffer(std::make_unique_for_overwrite<std::byte[]>(kListingBufferSize))
{
}

Result<bool> PosixListing::Fill()
{
    // Call getdents64(2) directly: readdir(3) would add its own lock and a smaller buffer.
    const long got = RetryInterrupted([this] {
        return ::syscall(SYS_getdents64, m_descriptor->Get(), m_buffer.get(), kListingBufferSize);
    });
    if (got <= 0) {
        m_bEnded = true;
        if (got < 0) {
            return LastError();
        }
        return false;
    }
    m_nPosition = 0;
    m_nEnd = static_cast<std::size_t>(got);
    return true;
}

Result<bool> PosixListing::Next(FindData& item)
{
    for (;;) {
        if (m_nPosition >= m_nEnd) {
            if (m_bEnded) {
                return false;
            }
            Result<bool> filled = Fill();
            if (!filled || !*filled) {
                return filled;
            }
        }
        // struct linux_dirent64, see getdents(2).
        const std::byte* record = m_buffer.get() + m_nPosition;
        std::uint16_t length = 0;
        std::memcpy(&length, record + offsetof(dirent64, d_reclen), sizeof(length));
        m_nPosition += length;
        const std::string_view name(
            reinterpret_cast<const char*>(record + offsetof(dirent64, d_name)));
        if (name == "." || name == "..") {
            continue;
        }
        item.name = name;
        item.kind = KindFromType(static_cast<unsigned char>(record[offsetof(dirent64, d_type)]));
        item.leftover = IsLeftoverName(name);
        item.size = 0;
        item.modified = 0;
        item.modifiedNsec = 0;
        item.attributes = 0;
        return true;
    }
}

}  // namespace quorbit
