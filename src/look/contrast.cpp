// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/contrast.h"

#include <algorithm>
#include <cmath>

namespace quorbit {
namespace {

constexpr double kLeastContrast = 3;
constexpr double kGoodContrast = 4.5;

// Returns the relative luminance (WCAG 2.1), 0 to 1. The threshold is that of sRGB (IEC 61966-2-1);
// the 0.03928 of WCAG gives the same result for colours of 8 bits per channel.
double Luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other)
{
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

}  // namespace

QColor ReadableOn(const QColor& colour, const QColor& background)
{
    if (Contrast(colour, background) >= kLeastContrast) {
        return colour;
    }
    // Black and white have about the same contrast to a background of this luminance.
    constexpr double kMiddle = 0.18;
    constexpr int kSteps = 50;
    const double aim = Luminance(background) < kMiddle ? 1 : 0;
    const auto mixed = [&](float part, double share) {
        return static_cast<float>(part + (aim - part) * share);
    };
    QColor shade = colour;
    for (int step = 1; step <= kSteps && Contrast(shade, background) < kGoodContrast; ++step) {
        const double share = static_cast<double>(step) / kSteps;
        shade = QColor::fromRgbF(mixed(colour.redF(), share), mixed(colour.greenF(), share),
                                 mixed(colour.blueF(), share));
    }
    return shade;
}

}  // namespace quorbit
