// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Attribute bits that a file system exposes as one number in an extended attribute: ntfs-3g, ntfs3
// and the kernel's SMB client.

#pragma once

#include <optional>

#include "platform/posix/attribute_source.h"

namespace quorbit {

struct WordLayout {
    const char* attribute = nullptr;  // static storage duration
    std::size_t size = 4;             // bytes, 1 or 4
    bool bigEndian = false;           // otherwise in host byte order
};

class WordAttributes final : public AttributeSource {
public:
    explicit WordAttributes(const WordLayout& layout) : m_layout(layout) {}

    [[nodiscard]] bool IsNative() const override { return true; }
    Result<std::optional<std::uint32_t>> Read(const AttributeItem& item) override;
    Status Write(const AttributeItem& item, std::uint32_t bits) override;

private:
    Result<std::optional<std::uint32_t>> ReadWord(const AttributeItem& item) const;

    WordLayout m_layout;
};

// Returns the attribute with which the volume's NTFS driver exposes the word, or nullopt if it
// exposes none.
[[nodiscard]] std::optional<WordLayout> FindNtfsLayout(int folder);

}  // namespace quorbit
