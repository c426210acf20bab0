// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Formats the entries of a batch file as text for --show. Pure functions. Any thread.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "batch/dir_copy.h"

namespace quorbit {

// Returns all fields of the entries, with control characters made printable.
[[nodiscard]] std::string ShowEntries(const std::vector<CDirCopy>& entries);
// Returns the names of the bits of an entry's flags (DCF_...); unknown bits as one hexadecimal
// number.
[[nodiscard]] std::string FlagNames(std::uint32_t dwFlags);

}  // namespace quorbit
