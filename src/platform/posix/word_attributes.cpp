// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/word_attributes.h"

#include <endian.h>
#include <sys/xattr.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "platform/posix/xattr_access.h"

namespace quorbit {

namespace {

std::uint32_t Decode(const std::string& value, const WordLayout& layout)
{
    if (layout.size == 1) {
        return static_cast<unsigned char>(value[0]);
    }
    std::uint32_t word = 0;
    std::memcpy(&word, value.data(), sizeof(word));
    return layout.bigEndian ? be32toh(word) : word;
}

std::string Encode(std::uint32_t word, const WordLayout& layout)
{
    if (layout.size == 1) {
        return std::string(1, static_cast<char>(word));
    }
    const std::uint32_t ordered = layout.bigEndian ? htobe32(word) : word;
    std::string value(sizeof(ordered), '\0');
    std::memcpy(value.data(), &ordered, sizeof(ordered));
    return value;
}

}  // namespace

Result<std::optional<std::uint32_t>> WordAttributes::ReadWord(const AttributeItem& item) const
{
    const Result<std::string> value = GetItemXattr(item, m_layout.attribute, m_layout.size);
    if (value) {
        return value->size() == m_layout.size ? std::optional(Decode(*value, m_layout))
                                              : std::nullopt;
    }
    const int code = value.GetError().Code();
    const bool none =
        code == ENODATA || code == EOPNOTSUPP || code == EPERM || code == EACCES || code == ERANGE;
    return none ? Result<std::optional<std::uint32_t>>(std::nullopt) : value.GetError();
}

Result<std::optional<std::uint32_t>> WordAttributes::Read(const AttributeItem& item)
{
    Result<std::optional<std::uint32_t>> word = ReadWord(item);
    if (word && *word) {
        **word &= kStoredAttributes;
    }
    return word;
}

Status WordAttributes::Write(const AttributeItem& item, std::uint32_t bits)
{
    const Result<std::optional<std::uint32_t>> old = ReadWord(item);
    if (!old) {
        return old.GetError();
    }
    // 0x80 means "no other attribute" and must not be combined with others.
    const std::uint32_t rest = old->value_or(0) & ~(kStoredAttributes | kAttributeNormal);
    return SetItemXattr(item, m_layout.attribute,
                        Encode(rest | (bits & kStoredAttributes), m_layout));
}

std::optional<WordLayout> FindNtfsLayout(int folder)
{
    constexpr std::array<WordLayout, 3> kLayouts = {{{"system.ntfs_attrib_be", 4, true},
                                                     {"system.ntfs_attrib", 4, false},
                                                     {"system.dos_attrib", 1, false}}};
    for (const WordLayout& layout : kLayouts) {
        std::array<char, 4> value = {};
        if (::fgetxattr(folder, layout.attribute, value.data(), value.size()) ==
            static_cast<ssize_t>(layout.size)) {
            return layout;
        }
    }
    return std::nullopt;
}

}  // namespace quorbit
