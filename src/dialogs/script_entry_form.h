// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The dialog of script entries, without its window. Pure functions.

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

// entry: null for a new one.
[[nodiscard]] ScriptEntryForm OpenScriptEntryForm(const CDirCopy* entry);
// Of a form with a type; the path is not looked at.
[[nodiscard]] EntryValues ValuesOf(const ScriptEntryForm& form);

}  // namespace quorbit
