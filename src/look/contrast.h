// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Text that can be read on its background.

#pragma once

#include <QColor>

namespace quorbit {

// The colour itself if it stands out from the background by a contrast of 3 to 1, else its next
// lighter or darker shade, away from the background, that reaches 4.5 to 1. Contrast as in the Web
// Content Accessibility Guidelines 2.1.
[[nodiscard]] QColor ReadableOn(const QColor& colour, const QColor& background);

}  // namespace quorbit
