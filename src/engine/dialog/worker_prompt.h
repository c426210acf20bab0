// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Passes questions from the worker to the user interface. The worker stores a question and blocks;
// the user interface polls it, shows a message box and stores the answer. One question at a time.

#pragma once

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>

#include "batch/prompts.h"

namespace quorbit {

struct WorkerQuestion {
    std::string text;
    std::string caption;  // empty: the default caption
    PromptIcon icon = PromptIcon::None;
    PromptButtons buttons = PromptButtons::Ok;
};

class WorkerPrompt {
public:
    // Worker thread only. Blocks until the question is answered. Returns true for Yes, false for No
    // or after Abandon.
    [[nodiscard]] bool Ask(WorkerQuestion question);

    // User interface thread only. Returns the pending question, each only once, or nullopt.
    [[nodiscard]] std::optional<WorkerQuestion> Take();
    // User interface thread only. Answers the question returned by Take.
    void Answer(bool yes);
    // Any thread. Answers No to the pending and all later questions.
    void Abandon();

private:
    enum class State { None, Waiting, Taken, Answered };

    std::mutex m_mutex;
    std::condition_variable m_answered;
    WorkerQuestion m_question;
    State m_state = State::None;
    bool m_bYes = false;
    bool m_bAbandoned = false;
};

}  // namespace quorbit
