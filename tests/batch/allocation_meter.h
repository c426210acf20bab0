// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tells how much memory a piece of code takes at its worst.

#pragma once

#include <cstddef>
#include <functional>

namespace quorbit {

// Bytes that the operators new of this program held at most while work ran, above what they held
// before. One thread only.
[[nodiscard]] std::size_t PeakAllocation(const std::function<void()>& work);

}  // namespace quorbit
