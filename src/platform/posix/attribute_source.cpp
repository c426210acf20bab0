// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/attribute_source.h"

#include <linux/magic.h>
#include <atomic>

#include <cerrno>

#include "platform/posix/dos_attributes.h"
#include "platform/posix/fat_attributes.h"
#include "platform/posix/word_attributes.h"
#include "platform/posix/xattr_access.h"

namespace quorbit {

namespace {

constexpr std::uint32_t kNtfs3 = 0x7366746e;

// user.DOSATTRIB as written by Samba, on any file system that supports user extended attributes.
class SambaAttributes final : public AttributeSource {
public:
    [[nodiscard]] bool IsNative() const override { return false; }

    Result<std::optional<std::uint32_t>> Read(const AttributeItem& item) override
    {
        const Result<std::string> value = Value(item);
        if (!value && value.GetError().Code() == ERANGE) {
            // Longer than any known version. Like other values that are not understood, it does not
            // count.
            return std::optional<std::uint32_t>();
        }
        if (!value) {
            return value.GetError();
        }
        return ReadDosAttributes(*value);
    }

    Status Write(const AttributeItem& item, std::uint32_t bits) override
    {
        const Result<std::string> old = Value(item);
        if (!old) {
            return old.GetError();
        }
        // Samba also stores the folder bit.
        const std::uint32_t isFolder = item.kind == ItemKind::Folder ? kAttributeFolder : 0;
        const auto changed =
            ChangeDosAttributes(*old, bits | isFolder, kStoredAttributes | isFolder);
        return changed ? SetItemXattr(item, kAttribute, *changed)
                       : Status(Error(ErrorKind::NotSupported,
                                      "The stored file attributes are not understood"));
    }

private:
    static constexpr const char* kAttribute = "user.DOSATTRIB";
    static constexpr std::size_t kMaxSize = 1024;  // bytes; values of version 2 contain a file name

    // Returns an empty string if there is no value. Once the volume has refused (EOPNOTSUPP), it is
    // not asked again.
    Result<std::string> Value(const AttributeItem& item)
    {
        if (!m_bSupported) {
            return std::string();
        }
        Result<std::string> value = GetItemXattr(item, kAttribute, kMaxSize);
        if (value) {
            return value;
        }
        const int code = value.GetError().Code();
        m_bSupported = code != EOPNOTSUPP;
        // EPERM and EACCES: the value may not be read, so treat it as missing.
        const bool none = code == ENODATA || code == EOPNOTSUPP || code == EPERM || code == EACCES;
        return none ? std::string() : value;
    }

    std::atomic<bool> m_bSupported = true;
};

}  // namespace

std::unique_ptr<AttributeSource> MakeAttributeSource(std::uint32_t type, int folder)
{
    switch (type) {
        case MSDOS_SUPER_MAGIC:
        case EXFAT_SUPER_MAGIC:
            return std::make_unique<FatAttributes>(std::make_unique<FatAttributeIoctl>());
        case CIFS_SUPER_MAGIC:
        case SMB2_SUPER_MAGIC:
            return std::make_unique<WordAttributes>(WordLayout{"user.cifs.dosattrib", 4, false});
        case kNtfs3:
        case FUSE_SUPER_MAGIC:
            if (const auto layout = FindNtfsLayout(folder)) {
                return std::make_unique<WordAttributes>(*layout);
            }
            break;
        default:
            break;
    }
    return std::make_unique<SambaAttributes>();
}

}  // namespace quorbit
