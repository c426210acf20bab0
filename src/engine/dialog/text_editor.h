// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Shows a text file, the log of a run, in the system's plain text editor.

#pragma once

#include <string>

#include "batch/prompts.h"

namespace quorbit {

enum class EditorStart { Started, OutOfMemory, FileNotFound, PathNotFound, BadFormat };

// Behind an interface so that tests open no windows. User interface thread only.
class TextEditor {
public:
    virtual ~TextEditor() = default;
    // Returns as soon as the editor is started.
    [[nodiscard]] virtual EditorStart Open(const std::string& path) = 0;
};

// Opens the log and tells in a box if that fails.
void ViewLog(TextEditor& editor, Prompts& prompts, const std::string& logPath);

}  // namespace quorbit
