// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Decodes UTF-8 (RFC 3629): rejects overlong forms, surrogates and code points above U+10FFFF. Pure
// functions that do not allocate. Any thread.

#pragma once

#include <cstddef>
#include <string_view>

namespace quorbit {

// A code point and its size in bytes. Size 0: there is no valid character.
struct Utf8Character {
    char32_t code = 0;
    std::size_t length = 0;
};

// Decodes the first character. The text must not be empty.
[[nodiscard]] Utf8Character FirstCharacter(std::string_view text);
// Decodes the last character. The text must be valid UTF-8 and not empty.
[[nodiscard]] Utf8Character LastCharacter(std::string_view text);
[[nodiscard]] bool IsUtf8(std::string_view text);

}  // namespace quorbit
