// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/transfer_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

namespace quorbit {
namespace {

std::string Counted(std::int64_t count, const char* unit)
{
    return std::to_string(count) + " " + unit + (count == 1 ? "" : "s");
}

// Rounds up to a multiple of `step`.
std::int64_t UpTo(std::int64_t value, std::int64_t step)
{
    return (value + step - 1) / step * step;
}

}  // namespace

std::string AmountText(double bytes)
{
    constexpr std::array kUnits{"KB", "MB", "GB", "TB", "PB"};
    if (bytes < 1023.5) {
        return Counted(std::llround(bytes), "byte");
    }
    std::size_t unit = 0;
    double amount = bytes / 1024;
    // Amounts that would round to 1000 use the next unit, so that three digits suffice.
    while (amount >= 999.5 && unit + 1 < kUnits.size()) {
        amount /= 1024;
        ++unit;
    }
    const int decimals = amount < 9.995 ? 2 : amount < 99.95 ? 1 : 0;
    // Unlike printf(3), std::to_chars does not depend on the locale.
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.begin(), text.end(), amount, std::chars_format::fixed, decimals);
    return std::string(text.data(), end.ptr) + " " + kUnits[unit];
}

std::string TimeLeftText(std::chrono::seconds left)
{
    const std::int64_t seconds = left.count();
    const std::int64_t minutes = (seconds + 30) / 60;
    const std::int64_t coarse = (minutes + 5) / 10 * 10;
    std::string text = "about ";
    if (seconds <= 55) {
        text += Counted(UpTo(std::max<std::int64_t>(seconds, 1), 5), "second");
    } else if (minutes < 60) {
        text += Counted(minutes, "minute");
    } else {
        text += Counted(coarse / 60, "hour");
        if (coarse % 60 != 0) {
            text += ' ' + Counted(coarse % 60, "minute");
        }
    }
    text += " left";
    return text;
}

std::string TransferText(const Transfer& transfer)
{
    std::vector<std::string> parts;
    if (transfer.bytes > 0) {
        parts.push_back(AmountText(static_cast<double>(transfer.bytes)) + " copied");
        if (transfer.bytesPerSecond) {
            parts.push_back(AmountText(*transfer.bytesPerSecond) + "/s");
        }
    }
    if (transfer.left) {
        parts.push_back(TimeLeftText(*transfer.left));
    }
    if (!transfer.note.empty()) {
        parts.push_back(transfer.note);
    }

    std::string text;
    for (const std::string& part : parts) {
        text += (text.empty() ? "" : ", ") + part;
    }
    if (!text.empty() && text.front() >= 'a' && text.front() <= 'z') {
        text.front() = static_cast<char>(text.front() - 'a' + 'A');
    }
    return text;
}

}  // namespace quorbit
