// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/utf8.h"

namespace quorbit {

namespace {

constexpr bool IsContinuation(unsigned char c)
{
    return (c & 0xC0) == 0x80;
}

// The length of a multi-byte sequence, and the range of its second byte that excludes overlong
// forms, surrogates and code points above U+10FFFF (RFC 3629, section 4).
struct LeadByte {
    std::size_t length;
    unsigned char low;
    unsigned char high;
};

constexpr LeadByte Lead(unsigned char c)
{
    if (c >= 0xC2 && c <= 0xDF) {
        return {2, 0x80, 0xBF};
    }
    if (c >= 0xE0 && c <= 0xEF) {
        return {3, static_cast<unsigned char>(c == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(c == 0xED ? 0x9F : 0xBF)};
    }
    if (c >= 0xF0 && c <= 0xF4) {
        return {4, static_cast<unsigned char>(c == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(c == 0xF4 ? 0x8F : 0xBF)};
    }
    return {0, 0, 0};
}

}  // namespace

Utf8Character FirstCharacter(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80) {
        return {first, 1};
    }
    const LeadByte lead = Lead(first);
    if (lead.length == 0 || text.size() < lead.length) {
        return {};
    }
    const auto second = static_cast<unsigned char>(text[1]);
    if (second < lead.low || second > lead.high) {
        return {};
    }
    // The first byte holds 5, 4 or 3 bits of the code point.
    char32_t code = first & (0x7FU >> lead.length);
    for (std::size_t i = 1; i < lead.length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if (!IsContinuation(next)) {
            return {};
        }
        code = (code << 6) | (next & 0x3FU);
    }
    return {code, lead.length};
}

Utf8Character LastCharacter(std::string_view text)
{
    std::size_t start = text.size() - 1;
    while (start > 0 && IsContinuation(static_cast<unsigned char>(text[start]))) {
        --start;
    }
    return FirstCharacter(text.substr(start));
}

bool IsUtf8(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = FirstCharacter(text).length;
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace quorbit
