// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Converts errno(3) values to errors.

#pragma once

#include "platform/error.h"

namespace quorbit {

// Maps an errno value to a kind. The text is the system's, untranslated, so that logs do not depend
// on the language. Any thread.
[[nodiscard]] Error ErrorFromErrno(int code);

}  // namespace quorbit
