// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The words for how much was copied, how fast, and how long it may still take.

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace quorbit {

// "512 bytes", "4.20 KB", "117 MB"; powers of 1024, three digits.
[[nodiscard]] std::string AmountText(double bytes);
// "about 40 seconds left", "about 3 minutes left"; coarser the longer it is.
[[nodiscard]] std::string TimeLeftText(std::chrono::seconds left);
struct Transfer {
    std::uint64_t bytes = 0;
    std::optional<double> bytesPerSecond;
    std::optional<std::chrono::seconds> left;
    std::string note;  // what else there is to say
};

// The parts that there are: "1.40 GB copied, 52.0 MB/s, about 3 minutes left". Where nothing was
// copied no speed is told.
[[nodiscard]] std::string TransferText(const Transfer& transfer);

}  // namespace quorbit
