// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The one place where the worker waits: a box that it wants shown. The worker leaves its question
// here and sleeps; the user interface looks for it, shows the box and brings the answer. One
// question at a time.

#pragma once

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>

#include "batch/prompts.h"

namespace quorbit {

struct WorkerQuestion {
    std::string text;
    std::string caption;  // empty for the application's own
    PromptIcon icon = PromptIcon::None;
    PromptButtons buttons = PromptButtons::Ok;
};

class WorkerPrompt {
public:
    // Worker: returns when the question is answered; true for Yes.
    [[nodiscard]] bool Ask(WorkerQuestion question);

    // User interface: the question that waits, each only once.
    [[nodiscard]] std::optional<WorkerQuestion> Take();
    // User interface: the answer to the question that was taken.
    void Answer(bool yes);
    // Any thread: from now on nobody is there to answer; every question gets a No at once.
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
