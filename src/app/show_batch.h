// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The entries of a batch file as text for a person.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "batch/dir_copy.h"

namespace quorbit {

[[nodiscard]] std::string ShowEntries(const std::vector<CDirCopy>& entries);
// The bits of a flag word by name, bits without a name as a number.
[[nodiscard]] std::string FlagNames(std::uint32_t dwFlags);

}  // namespace quorbit
