// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// How an unfinished copy is called while it has a name of its own: ".quorbit-", 16 lower-case
// hexadecimal digits, ".tmp". The length is fixed, so that there is room for it beside a file whose
// own name is as long as a name may be.

#pragma once

#include <string>
#include <string_view>

namespace quorbit {

// A new name, random enough to be free.
[[nodiscard]] std::string MakeLeftoverName();
[[nodiscard]] bool IsLeftoverName(std::string_view name);

}  // namespace quorbit
