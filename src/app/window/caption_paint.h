// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// How the title bar is coloured. Rules only: no window is touched.

#pragma once

#include <QPalette>
#include <QRgb>
#include <vector>

namespace quorbit {

// Pixels from the bar's left end.
struct CaptionStrip {
    int left = 0;
    int width = 0;
    QRgb colour = 0;
    bool operator==(const CaptionStrip&) const = default;
};

// The background of an active title bar that is width pixels wide: black at the left, the caption
// colour at the right, a quadratic curve between them. The strips go from right to left and cover
// the bar without a gap; none if width is not above 0.
[[nodiscard]] std::vector<CaptionStrip> CaptionGradient(int width, QRgb caption);

// 0 (black) to 240 (white).
[[nodiscard]] int Lightness(QRgb colour);

// The colour of text on an active title bar: captionText, or white if that is too dark for the
// bar's black end.
[[nodiscard]] QRgb ActiveTextColour(QRgb captionText);

struct CaptionColours {
    QRgb fill = 0;
    QRgb text = 0;  // of the document; the program's name is white
};

// An inactive bar is never lighter than white text on it allows.
[[nodiscard]] CaptionColours ColoursOf(const QPalette& palette, bool active);

}  // namespace quorbit
