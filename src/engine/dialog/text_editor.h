// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Opens a text file, such as the log of a run, in the text editor of the system.

#pragma once

#include <string>

#include "batch/prompts.h"

namespace quorbit {

enum class EditorStart { Started, OutOfMemory, FileNotFound, PathNotFound, BadFormat };

// An interface so that tests open no windows. User interface thread only.
class TextEditor {
public:
    virtual ~TextEditor() = default;
    // Returns when the editor has been started, without waiting for it to exit. `path` is in bytes.
    [[nodiscard]] virtual EditorStart Open(const std::string& path) = 0;
};

// Opens the log; shows a message box on failure.
void ViewLog(TextEditor& editor, Prompts& prompts, const std::string& logPath);

}  // namespace quorbit
