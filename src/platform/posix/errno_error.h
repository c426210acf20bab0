// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Errors from errno(3).

#pragma once

#include "platform/error.h"

namespace quorbit {

// The one place where an errno value becomes a kind. The text is that of the system, untranslated,
// so that the log reads the same everywhere.
[[nodiscard]] Error ErrorFromErrno(int code);

}  // namespace quorbit
