// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The logic of the script entry dialog, without its window. Pure functions.

#pragma once

#include <cstdint>
#include <string>

#include "batch/dir_copy.h"
#include "document/entry_dialogs.h"

namespace quorbit {

enum class ScriptType : std::uint8_t { None, ShellHost, DosBatch };

struct ScriptEntryForm {
    std::string file;
    ScriptType type = ScriptType::None;
};

// `entry` is null for a new entry.
[[nodiscard]] ScriptEntryForm OpenScriptEntryForm(const CDirCopy* entry);
// Returns the values of a form, which must have a type. The path is not checked.
[[nodiscard]] EntryValues ValuesOf(const ScriptEntryForm& form);

}  // namespace quorbit
