// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Which files a walk takes. Pure functions.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorbit {

// Whether the list selects a name. nKind is the effective kind of the entry (DCK_), dwFlags its
// flag word. A mask is its first character dropped and the rest compared with the end of the name,
// letters without case; there are no other wildcards. Exactly "*.*" selects everything, also under
// DCF_EXCLUDE.
[[nodiscard]] bool MatchFileType(const std::vector<std::string>& list, std::string_view fileName,
                                 std::uint32_t nKind, std::uint32_t dwFlags);

// Whether a file's attribute word (kAttribute...) passes the attribute filter of an entry. nMask is
// the low four bits of its flag word, which stand in another order than the attribute word.
[[nodiscard]] bool MatchAttributes(std::uint32_t attributes, std::uint32_t dwFlags,
                                   std::uint32_t nMask);

}  // namespace quorbit
