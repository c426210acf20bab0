// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Message boxes and file dialogs on the screen, over the window that is active.

#pragma once

#include "batch/prompts.h"

namespace quorbit {

class QtPrompts : public Prompts {
public:
    PromptAnswer Ask(const std::string& text, const std::string& caption, PromptIcon icon,
                     PromptButtons buttons) override;
    std::optional<std::string> AskOpenFile(const FileQuestion& question) override;
    // Asks before a file that is there is chosen.
    std::optional<std::string> AskSaveFile(const FileQuestion& question) override;
};

}  // namespace quorbit
