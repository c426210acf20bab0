// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The masks that a dialog offers, with what is told when there are none. User interface thread
// only.

#pragma once

#include <string>
#include <vector>

#include "batch/prompts.h"

namespace quorbit {

// Loads the masks under the wait cursor. If the machine knows no type of file, prompts (which may
// be null) tell so, and the result is empty.
[[nodiscard]] std::vector<std::string> MaskChoices(Prompts* prompts);

}  // namespace quorbit
