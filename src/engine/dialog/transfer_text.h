// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Formats the amount copied, the speed and the time left. Pure functions.

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace quorbit {

// Returns "512 bytes", "4.20 KB", "117 MB": units are powers of 1024, with three significant digits
// above 1023 bytes.
[[nodiscard]] std::string AmountText(double bytes);
// Returns "about 40 seconds left", "about 3 minutes left": in steps of 5 seconds, then minutes,
// then 10 minutes.
[[nodiscard]] std::string TimeLeftText(std::chrono::seconds left);
struct Transfer {
    std::uint64_t bytes = 0;
    std::optional<double> bytesPerSecond;
    std::optional<std::chrono::seconds> left;
    std::string note;  // additional text; may be empty
};

// Joins the available parts: "1.40 GB copied, 52.0 MB/s, about 3 minutes left". Omits the speed if
// nothing was copied. The first letter becomes upper case.
[[nodiscard]] std::string TransferText(const Transfer& transfer);

}  // namespace quorbit
