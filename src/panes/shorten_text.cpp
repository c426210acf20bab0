// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/shorten_text.h"

namespace quorbit {
namespace {

// Returns the prefix of at most `length` code units that does not end within a surrogate pair.
QString WholeCharacters(const QString& text, qsizetype length)
{
    const bool splits = length > 0 && length < text.size() && text[length - 1].isHighSurrogate() &&
                        text[length].isLowSurrogate();
    return text.left(splits ? length - 1 : length);
}

}  // namespace

QString ShortenText(const QString& text, int width, int allowance,
                    const std::function<int(const QString&)>& measure)
{
    if (text.isEmpty() || measure(text) + allowance <= width) {
        return text;
    }
    const QString dots = QStringLiteral("...");
    const int room = width - allowance - measure(dots);
    qsizetype fits = text[0].isHighSurrogate() ? 2 : 1;
    qsizetype tooLong = text.size();
    while (tooLong - fits > 1) {
        const qsizetype middle = fits + (tooLong - fits) / 2;
        (measure(WholeCharacters(text, middle)) <= room ? fits : tooLong) = middle;
    }
    return WholeCharacters(text, fits) + dots;
}

}  // namespace quorbit
