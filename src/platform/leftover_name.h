// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Names of staged files that cannot be anonymous: ".quorbit-", 16 lower-case hexadecimal digits,
// ".tmp". The length is fixed, so that such a name also fits if the name of the file itself has the
// maximum length.

#pragma once

#include <string>
#include <string_view>

namespace quorbit {

// Returns a new name with 64 random bits. The caller still has to create it exclusively. Any
// thread.
[[nodiscard]] std::string MakeLeftoverName();
[[nodiscard]] bool IsLeftoverName(std::string_view name);

}  // namespace quorbit
