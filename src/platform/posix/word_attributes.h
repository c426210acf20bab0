// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Attribute bits that a file system shows as one number in an extended attribute of a fixed name:
// ntfs-3g, ntfs3 and the kernel's SMB client.

#pragma once

#include <optional>

#include "platform/posix/attribute_source.h"

namespace quorbit {

struct WordLayout {
    const char* attribute = nullptr;  // static storage duration
    std::size_t size = 4;             // bytes, 1 or 4
    bool bigEndian = false;           // else in the order of this machine
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

// Which of the attributes by which NTFS drivers show the word answers for this folder, nullopt if
// none does.
[[nodiscard]] std::optional<WordLayout> FindNtfsLayout(int folder);

}  // namespace quorbit
