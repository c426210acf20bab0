// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The standard input, output and error of this process.

#pragma once

#include <string_view>

#include "platform/error.h"

namespace quorbit {

// Call it first in the process. If the caller has closed a standard stream, reserves its descriptor
// so that no file that is opened later receives it and, with it, messages meant for the stream.
// Reading from or writing to such a stream fails as it does for a closed one.
void ReserveStandardStreams();

// Writes to standard output, unbuffered. Main thread only, and not while a progress line is drawn.
Status WriteStandardOutput(std::string_view text);

}  // namespace quorbit
