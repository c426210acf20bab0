// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Attribute bits of FAT and exFAT, accessed with the ioctls of <linux/msdos_fs.h>.

#pragma once

#include "platform/posix/attribute_source.h"

namespace quorbit {

// The two ioctls. An interface, because few build machines have such a volume.
class FatAttributeControl {
public:
    virtual ~FatAttributeControl() = default;
    // Returns the complete attribute byte of an open file or folder; NotSupported (ENOTTY) if the
    // file system does not support the call.
    virtual Result<std::uint32_t> Get(int descriptor) = 0;
    virtual Status Set(int descriptor, std::uint32_t word) = 0;
};

class FatAttributeIoctl final : public FatAttributeControl {
public:
    Result<std::uint32_t> Get(int descriptor) override;
    Status Set(int descriptor, std::uint32_t word) override;
};

class FatAttributes final : public AttributeSource {
public:
    explicit FatAttributes(std::unique_ptr<FatAttributeControl> control)
        : m_control(std::move(control))
    {
    }

    [[nodiscard]] bool IsNative() const override { return true; }
    Result<std::optional<std::uint32_t>> Read(const AttributeItem& item) override;
    Status Write(const AttributeItem& item, std::uint32_t bits) override;

private:
    std::unique_ptr<FatAttributeControl> m_control;
};

}  // namespace quorbit
