// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/case_folding.h"

#include <QChar>
#include <algorithm>

#include "platform/utf8.h"

namespace quorbit::case_folding {

namespace {

bool EqualBytes(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Lower(x) == Lower(y); });
}

bool SameFolding(char32_t a, char32_t b)
{
    return a == b || QChar::toCaseFolded(a) == QChar::toCaseFolded(b);
}

}  // namespace

bool EqualFolded(std::string_view a, std::string_view b)
{
    if (!IsUtf8(a) || !IsUtf8(b)) {
        return EqualBytes(a, b);
    }
    while (!a.empty() && !b.empty()) {
        const Utf8Character x = FirstCharacter(a);
        const Utf8Character y = FirstCharacter(b);
        if (!SameFolding(x.code, y.code)) {
            return false;
        }
        a.remove_prefix(x.length);
        b.remove_prefix(y.length);
    }
    return a.empty() && b.empty();
}

bool EndsWithFolded(std::string_view text, std::string_view end)
{
    if (!IsUtf8(text) || !IsUtf8(end)) {
        return text.size() > end.size() && EqualBytes(text.substr(text.size() - end.size()), end);
    }
    while (!text.empty() && !end.empty()) {
        const Utf8Character x = LastCharacter(text);
        const Utf8Character y = LastCharacter(end);
        if (!SameFolding(x.code, y.code)) {
            return false;
        }
        text.remove_suffix(x.length);
        end.remove_suffix(y.length);
    }
    return !text.empty();
}

}  // namespace quorbit::case_folding
