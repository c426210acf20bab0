// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The home folder of the user database, for a process whose HOME is unset or is not to be trusted.

#pragma once

#include <string>

namespace quorbit {

// Returns the home folder of the effective user, an absolute path; empty if there is none. Any
// thread. See getpwuid_r(3).
[[nodiscard]] std::string HomeFromPasswd();

}  // namespace quorbit
