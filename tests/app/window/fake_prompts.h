// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Answers what the program asks, in the order that the test has laid down, and keeps the questions.

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
    std::deque<PromptAnswer> answers;              // when there are no more, boxes are closed
    std::deque<std::optional<std::string>> files;  // of file dialogs; likewise
    std::function<void()> whileOpen;               // may be null

    std::vector<std::string> asked;  // texts of the boxes
    std::vector<PromptIcon> icons;
    std::vector<FileQuestion> fileQuestions;

    PromptAnswer Ask(const std::string& text, const std::string&, PromptIcon icon,
                     PromptButtons buttons) override
    {
        asked.push_back(text);
        icons.push_back(icon);
        if (whileOpen) {
            whileOpen();
        }
        if (!answers.empty()) {
            const PromptAnswer answer = answers.front();
            answers.pop_front();
            return answer;
        }
        return buttons == PromptButtons::Ok      ? PromptAnswer::Ok
               : buttons == PromptButtons::YesNo ? PromptAnswer::No
                                                 : PromptAnswer::Cancel;
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
