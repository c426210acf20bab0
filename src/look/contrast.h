// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Adjusts text colours so that they are readable on their background. Pure function. Any thread.

#pragma once

#include <QColor>

namespace quorbit {

// Returns `colour` if its contrast to the background is at least 3 to 1. Otherwise returns the
// nearest shade, lighter on a dark background and darker on a light one, that reaches 4.5 to 1.
// The contrast ratio is defined in the Web Content Accessibility Guidelines (WCAG) 2.1.
[[nodiscard]] QColor ReadableOn(const QColor& colour, const QColor& background);

}  // namespace quorbit
