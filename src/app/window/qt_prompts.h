// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Shows message boxes and file dialogs over the active window. User interface thread only.

#pragma once

#include "batch/prompts.h"

namespace quorbit {

class QtPrompts : public Prompts {
public:
    PromptAnswer Ask(const std::string& text, const std::string& caption, PromptIcon icon,
                     PromptButtons buttons) override;
    std::optional<std::string> AskOpenFile(const FileQuestion& question) override;
    // Asks for confirmation if the file exists.
    std::optional<std::string> AskSaveFile(const FileQuestion& question) override;
};

}  // namespace quorbit
