// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Measures the peak memory use of a function.

#pragma once

#include <cstddef>
#include <functional>

namespace quorbit {

// Returns the peak number of bytes allocated with operator new while `work` runs, above the level
// before it. Counts usable sizes (malloc_usable_size(3)). Single-threaded programs only.
[[nodiscard]] std::size_t PeakAllocation(const std::function<void()>& work);

}  // namespace quorbit
