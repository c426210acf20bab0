// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Finds mistakes in a profile that was edited by hand. Any thread.

#pragma once

#include <string>
#include <vector>

#include "platform/settings_store.h"

namespace quorbit {

// Returns one message per mistake, with file and line: a section without its closing bracket, a
// line without "=", a setting that is not a number but should be, and a line of the section
// "Drives" that maps nothing. Such lines have no effect. A profile that cannot be read is one
// mistake; a missing one is none.
[[nodiscard]] std::vector<std::string> FindSettingsMistakes(const SettingsStore& profile);

}  // namespace quorbit
