// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Computes the colours of the title bar. Pure functions. Any thread.

#pragma once

#include <QPalette>
#include <QRgb>
#include <vector>

namespace quorbit {

// A vertical strip of the bar. In pixels from its left end.
struct CaptionStrip {
    int left = 0;
    int width = 0;
    QRgb colour = 0;
    bool operator==(const CaptionStrip&) const = default;
};

// Returns the background of an active title bar of `width` pixels: a quadratic gradient from black
// on the left to the caption colour on the right. The strips are in order from right to left and
// cover the bar without gaps. Returns no strips if width is 0 or less.
[[nodiscard]] std::vector<CaptionStrip> CaptionGradient(int width, QRgb caption);

// Returns the HSL lightness, 0 (black) to 240 (white).
[[nodiscard]] int Lightness(QRgb colour);

// Returns the text colour of an active title bar: captionText, or white if captionText is too dark
// for the black end of the bar.
[[nodiscard]] QRgb ActiveTextColour(QRgb captionText);

struct CaptionColours {
    QRgb fill = 0;
    QRgb text = 0;  // of the document; the program name is white
};

// Returns the colours of the bar. An inactive bar is dark enough for white text.
[[nodiscard]] CaptionColours ColoursOf(const QPalette& palette, bool active);

}  // namespace quorbit
