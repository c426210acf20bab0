// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/code_page.h"

#include <algorithm>
#include <optional>

namespace quorbit {

namespace {

constexpr std::size_t kEscapeSize = 3;
constexpr std::string_view kEscapeStart = "\xED";  // of all surrogates

bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// U+DC00 plus the byte, encoded like a character: ED B2 80 to ED B3 BF.
void AppendEscape(std::string& out, char c)
{
    const auto byte = static_cast<unsigned char>(c);
    out += kEscapeStart;
    out += static_cast<char>(0xB0 | (byte >> 6));
    out += static_cast<char>(0x80 | (byte & 0x3F));
}

// Returns the byte if the text starts with an escape.
std::optional<char> EscapedByte(std::string_view text)
{
    if (text.size() < kEscapeSize || !text.starts_with(kEscapeStart)) {
        return std::nullopt;
    }
    const auto second = static_cast<unsigned char>(text[1]);
    const auto third = static_cast<unsigned char>(text[2]);
    if ((second != 0xB2 && second != 0xB3) || (third & 0xC0) != 0x80) {
        return std::nullopt;
    }
    return static_cast<char>(((second & 0x03) << 6) | (third & 0x3F));
}

// Returns the number of bytes before the first escape.
std::size_t SizeBeforeEscape(std::string_view text)
{
    std::size_t at = 0;
    while ((at = text.find(kEscapeStart, at)) != std::string_view::npos) {
        if (EscapedByte(text.substr(at))) {
            return at;
        }
        ++at;
    }
    return text.size();
}

std::string Escape(std::string_view bytes)
{
    std::string text;
    for (const char c : bytes) {
        if (IsAscii({&c, 1})) {
            text += c;
        } else {
            AppendEscape(text, c);
        }
    }
    return text;
}

}  // namespace

std::string CodePage::Decode(std::string_view bytes)
{
    if (IsAscii(bytes)) {
        return std::string(bytes);
    }
    std::string text;
    if (!ToUtf8(bytes, text)) {
        return Escape(bytes);
    }
    // Some code pages have several bytes for one character.
    std::string back;
    return FromUtf8(text, back) && back == bytes ? text : Escape(bytes);
}

Result<std::string> CodePage::Encode(std::string_view text)
{
    std::string bytes;
    while (!text.empty()) {
        const std::string_view plain = text.substr(0, SizeBeforeEscape(text));
        std::string part;
        if (IsAscii(plain)) {
            bytes += plain;
        } else if (FromUtf8(plain, part)) {
            bytes += part;
        } else {
            return Error(ErrorKind::NotSupported,
                         "A text has characters that are not in the code page of the settings");
        }
        text.remove_prefix(plain.size());
        if (!text.empty()) {
            bytes += *EscapedByte(text);
            text.remove_prefix(kEscapeSize);
        }
    }
    return bytes;
}

bool HasUnconverted(std::string_view text)
{
    return SizeBeforeEscape(text) < text.size();
}

}  // namespace quorbit
