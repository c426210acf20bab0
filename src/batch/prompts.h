// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Message boxes and file dialogs. One interface for all of them, so that tests can answer. User
// interface thread only.

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorbit {

enum class PromptIcon { None, Information, Exclamation, Question, Stop };
// Enter answers with the first button.
enum class PromptButtons { Ok, YesNo, NoYes, YesNoCancel };
enum class PromptAnswer { Ok, Yes, No, Cancel };

struct FileQuestion {
    std::string caption;               // empty: the default caption of the dialog
    std::string folder;                // initial folder; empty: chosen by the system
    std::string name;                  // proposed file name
    std::string defaultSuffix;         // without the dot; appended to a name without a suffix
    std::vector<std::string> filters;  // each "Text (*.mask)"
};

class Prompts {
public:
    virtual ~Prompts() = default;
    // Shows a modal message box and waits for the answer. Closing the box returns Cancel if there
    // is such a button, otherwise No, otherwise Ok. An empty caption stands for the name of the
    // application.
    virtual PromptAnswer Ask(const std::string& text, const std::string& caption, PromptIcon icon,
                             PromptButtons buttons) = 0;
    // Return the chosen path, or nullopt if the user cancels.
    virtual std::optional<std::string> AskOpenFile(const FileQuestion& question) = 0;
    virtual std::optional<std::string> AskSaveFile(const FileQuestion& question) = 0;
};

}  // namespace quorbit
