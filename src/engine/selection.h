// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Selects files by mask, name and attributes. Pure functions. Any thread.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorbit {

// Returns true if the list selects a name. nKind: DCK_TYPES or DCK_NAMES; dwFlags: the flags of the
// entry. A mask selects names that end in the mask without its first character and are longer than
// that; names must match completely. Case is ignored (platform/case_folding.h), and there are no
// other wildcards. "*.*" selects every file, even with DCF_EXCLUDE.
[[nodiscard]] bool MatchFileType(const std::vector<std::string>& list, std::string_view fileName,
                                 std::uint32_t nKind, std::uint32_t dwFlags);

// Returns true if the attributes of a file (kAttribute... bits) pass the attribute filter of an
// entry. nMask: the bits DCF_ATTR_MASK of its flags, whose order differs from kAttribute....
[[nodiscard]] bool MatchAttributes(std::uint32_t attributes, std::uint32_t dwFlags,
                                   std::uint32_t nMask);

}  // namespace quorbit
