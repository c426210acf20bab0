// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Converts text between a Windows code page and UTF-8. Code pages have the numbers of Windows: 1252
// is Western European, 1251 Cyrillic, 932 Japanese, 65001 UTF-8.
//
// Nothing is ever replaced by a similar character. A text that the code page cannot represent stays
// recognisable: each of its bytes above 0x7F becomes a lone surrogate (U+DC80 to U+DCFF), which is
// never valid UTF-8 and converts back to the same byte.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace quorbit {

inline constexpr std::int32_t kDefaultCodePage = 1252;
inline constexpr std::int32_t kUtf8CodePage = 65001;

// An object must be used by one thread at a time.
class CodePage {
public:
    virtual ~CodePage() = default;

    // Converts text to UTF-8. Text that would not convert back to the same bytes is escaped with
    // surrogates; see HasUnconverted.
    [[nodiscard]] std::string Decode(std::string_view bytes);
    // Converts UTF-8 and escapes to text. NotSupported if the code page lacks a character, or if
    // the rest of the text is not UTF-8.
    [[nodiscard]] Result<std::string> Encode(std::string_view text);

protected:
    // Exact conversions. They fail if anything cannot be converted. The texts are not empty.
    virtual bool ToUtf8(std::string_view bytes, std::string& text) = 0;
    virtual bool FromUtf8(std::string_view text, std::string& bytes) = 0;
};

// If the system does not know the code page, or if the code page does not contain ASCII, only ASCII
// can be converted.
[[nodiscard]] std::unique_ptr<CodePage> OpenCodePage(std::int32_t number);

// Returns true if the text contains bytes that Decode could not convert.
[[nodiscard]] bool HasUnconverted(std::string_view text);

}  // namespace quorbit
