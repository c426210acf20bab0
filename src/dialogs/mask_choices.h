// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Loads the masks offered by a dialog. User interface thread only.

#pragma once

#include <string>
#include <vector>

#include "batch/prompts.h"

namespace quorbit {

// Returns the masks, loaded under the wait cursor. If the system knows no file types, shows a
// message with `prompts` (may be null) and returns an empty list.
[[nodiscard]] std::vector<std::string> MaskChoices(Prompts* prompts);

}  // namespace quorbit
