// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/caption_paint.h"

#include <QColor>
#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace quorbit {
namespace {

constexpr int kStripsInFade = 64;
// Text with a lower Lightness is replaced with white.
constexpr int kDarkText = 90;
// In the scale of QColor, 0 to 255. White text has a contrast of about 5 to 1 on it.
constexpr int kLightestFill = 112;

QRgb Faded(QRgb colour, std::int64_t distance, std::int64_t fade)
{
    const auto channel = [&](std::int64_t c) {
        return static_cast<int>(c - distance * distance * c / (fade * fade));
    };
    return qRgb(channel(qRed(colour)), channel(qGreen(colour)), channel(qBlue(colour)));
}

QRgb InactiveFill(QColor mid)
{
    if (mid.lightness() > kLightestFill) {
        mid.setHsl(mid.hslHue(), mid.hslSaturation(), kLightestFill);
    }
    return mid.rgb();
}

// Returns the colour whose lightness differs more from the fill.
QRgb MoreDistinct(QRgb fill, QRgb one, QRgb other)
{
    const auto distance = [fill](QRgb colour) {
        return std::abs(Lightness(colour) - Lightness(fill));
    };
    return distance(one) >= distance(other) ? one : other;
}

}  // namespace

std::vector<CaptionStrip> CaptionGradient(int width, QRgb caption)
{
    std::vector<CaptionStrip> strips;
    if (width <= 0) {
        return strips;
    }
    const int fade = static_cast<int>(std::int64_t{width} * 5 / 6);
    const int step = std::max(fade / kStripsInFade, 1);
    strips.push_back({fade, width - fade, caption});
    int left = fade;
    while (left > step) {
        left -= step;
        strips.push_back({left, step, Faded(caption, fade - left, fade)});
    }
    if (left > 0) {
        strips.push_back({0, left, qRgb(0, 0, 0)});
    }
    return strips;
}

int Lightness(QRgb colour)
{
    const auto [least, most] = std::minmax({qRed(colour), qGreen(colour), qBlue(colour)});
    return ((most + least) * 240 + 255) / 510;
}

QRgb ActiveTextColour(QRgb captionText)
{
    return Lightness(captionText) < kDarkText ? qRgb(255, 255, 255) : captionText;
}

CaptionColours ColoursOf(const QPalette& palette, bool active)
{
    const auto colour = [&](QPalette::ColorRole role) {
        return palette.color(active ? QPalette::Active : QPalette::Inactive, role);
    };
    if (active) {
        return {colour(QPalette::Highlight).rgb(),
                ActiveTextColour(colour(QPalette::HighlightedText).rgb())};
    }
    const QRgb fill = InactiveFill(colour(QPalette::Mid));
    return {fill,
            MoreDistinct(fill, colour(QPalette::Window).rgb(), colour(QPalette::WindowText).rgb())};
}

}  // namespace quorbit
