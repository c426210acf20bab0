// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Gives scripted answers to message boxes and file dialogs and records the questions.

#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "batch/prompts.h"

namespace quorbit {

class FakePrompts : public Prompts {
public:
    struct Box {
        std::string text;
        std::string caption;
        PromptIcon icon;
        PromptButtons buttons;
        bool operator==(const Box&) const = default;
    };

    std::deque<PromptAnswer> answers;              // one per box, then `answer`
    std::optional<PromptAnswer> answer;            // to all other questions; none: No or Cancel
    std::deque<std::optional<std::string>> files;  // one per file dialog; others are cancelled
    std::function<void()> whileOpen;               // called while a box is open; may be null

    std::vector<Box> boxes;
    std::vector<std::string> asked;  // the texts of the boxes
    std::vector<FileQuestion> fileQuestions;

    PromptAnswer Ask(const std::string& text, const std::string& caption, PromptIcon icon,
                     PromptButtons buttons) override
    {
        boxes.push_back({text, caption, icon, buttons});
        asked.push_back(text);
        if (whileOpen) {
            whileOpen();
        }
        if (!answers.empty()) {
            const PromptAnswer next = answers.front();
            answers.pop_front();
            return next;
        }
        if (buttons == PromptButtons::Ok) {
            return PromptAnswer::Ok;
        }
        return answer.value_or(buttons == PromptButtons::YesNoCancel ? PromptAnswer::Cancel
                                                                     : PromptAnswer::No);
    }
    std::optional<std::string> AskOpenFile(const FileQuestion& question) override
    {
        return AnswerFile(question);
    }
    std::optional<std::string> AskSaveFile(const FileQuestion& question) override
    {
        return AnswerFile(question);
    }

private:
    std::optional<std::string> AnswerFile(const FileQuestion& question)
    {
        fileQuestions.push_back(question);
        if (files.empty()) {
            return std::nullopt;
        }
        auto path = files.front();
        files.pop_front();
        return path;
    }
};

}  // namespace quorbit
