// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Compares names and masks without regard to case.
//
// If both texts are valid UTF-8, characters are compared by Unicode simple case folding (status C
// and S of CaseFolding.txt): "ärger.txt" equals "ÄRGER.txt", and "ß" equals "ẞ". Equal texts may
// differ in size. Otherwise bytes are compared, and only A to Z have a case. No locale is used, and
// composed and decomposed letters differ.
//
// Pure functions that do not allocate. Any thread. Comparing ASCII is inline, because a walk
// compares each name with each item of the list.

#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace quorbit {

namespace case_folding {

[[nodiscard]] constexpr char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Returns true if either byte belongs to a character of several bytes.
[[nodiscard]] constexpr bool BeyondAscii(char a, char b)
{
    return ((static_cast<unsigned char>(a) | static_cast<unsigned char>(b)) & 0x80U) != 0;
}

// The slow paths of the functions below: texts that are not pure ASCII.
[[nodiscard]] bool EqualFolded(std::string_view a, std::string_view b);
[[nodiscard]] bool EndsWithFolded(std::string_view text, std::string_view end);

}  // namespace case_folding

[[nodiscard]] inline bool EqualNoCase(std::string_view a, std::string_view b)
{
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (a[i] == b[i]) {
            continue;
        }
        if (case_folding::BeyondAscii(a[i], b[i])) {
            return case_folding::EqualFolded(a, b);
        }
        if (case_folding::Lower(a[i]) != case_folding::Lower(b[i])) {
            return false;
        }
    }
    return a.size() == b.size();
}

// Returns true if `text` ends with `end` and is at least one character longer.
[[nodiscard]] inline bool EndsWithNoCase(std::string_view text, std::string_view end)
{
    const char* a = text.data() + text.size();
    const char* b = end.data() + end.size();
    for (std::size_t left = std::min(text.size(), end.size()); left > 0; --left) {
        if (*--a == *--b) {
            continue;
        }
        if (case_folding::BeyondAscii(*a, *b)) {
            return case_folding::EndsWithFolded(text, end);
        }
        if (case_folding::Lower(*a) != case_folding::Lower(*b)) {
            return false;
        }
    }
    return text.size() > end.size();
}

}  // namespace quorbit
