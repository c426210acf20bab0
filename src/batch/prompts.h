// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The questions that the program asks a person: message boxes and file dialogs. One object answers
// all of them, so that a test can. User interface thread only.

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorbit {

enum class PromptIcon { None, Information, Exclamation, Question, Stop };
enum class PromptButtons { Ok, YesNo, YesNoCancel };
enum class PromptAnswer { Ok, Yes, No, Cancel };

struct FileQuestion {
    std::string caption;               // empty: the one that fits
    std::string folder;                // where the dialog starts; empty: the system's choice
    std::string name;                  // proposed file name
    std::string defaultSuffix;         // without the dot; appended to a name typed without one
    std::vector<std::string> filters;  // each "Text (*.mask)"
};

class Prompts {
public:
    virtual ~Prompts() = default;
    // A modal box; returns when it is answered. Closing it counts as Cancel, else No, else Ok. An
    // empty caption means the application's name.
    virtual PromptAnswer Ask(const std::string& text, const std::string& caption, PromptIcon icon,
                             PromptButtons buttons) = 0;
    // The path that was chosen; nothing on Cancel.
    virtual std::optional<std::string> AskOpenFile(const FileQuestion& question) = 0;
    virtual std::optional<std::string> AskSaveFile(const FileQuestion& question) = 0;
};

}  // namespace quorbit
