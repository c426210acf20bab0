// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Makes a text fit into a width.

#pragma once

#include <QString>
#include <functional>

namespace quorbit {

// The text itself if its width and the allowance fit; otherwise its longest beginning that fits
// with "..." behind it, and if none does, its first character with "...". Widths in the unit that
// measure gives; a longer text must not measure less than its beginning. A character that takes two
// code units is kept or dropped whole.
[[nodiscard]] QString ShortenText(const QString& text, int width, int allowance,
                                  const std::function<int(const QString&)>& measure);

}  // namespace quorbit
