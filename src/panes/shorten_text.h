// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Shortens a text to fit a width. Pure function.

#pragma once

#include <QString>
#include <functional>

namespace quorbit {

// Returns `text` if its width plus `allowance` fits into `width`; otherwise its longest prefix that
// fits, followed by "..."; if none fits, the first character followed by "...". Widths are in the
// unit of `measure`, which must not return less for a text than for its prefix. Does not split
// surrogate pairs.
[[nodiscard]] QString ShortenText(const QString& text, int width, int allowance,
                                  const std::function<int(const QString&)>& measure);

}  // namespace quorbit
