// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/worker_prompt.h"

#include <utility>

namespace quorbit {

bool WorkerPrompt::Ask(WorkerQuestion question)
{
    std::unique_lock lock(m_mutex);
    m_question = std::move(question);
    m_state = State::Waiting;
    m_answered.wait(lock, [this] { return m_state == State::Answered || m_bAbandoned; });
    return std::exchange(m_state, State::None) == State::Answered && m_bYes;
}

std::optional<WorkerQuestion> WorkerPrompt::Take()
{
    const std::lock_guard lock(m_mutex);
    if (m_state != State::Waiting) {
        return std::nullopt;
    }
    m_state = State::Taken;
    return m_question;
}

void WorkerPrompt::Answer(bool yes)
{
    const std::lock_guard lock(m_mutex);
    if (m_state != State::Taken) {  // abandoned in the meantime
        return;
    }
    m_bYes = yes;
    m_state = State::Answered;
    m_answered.notify_one();
}

void WorkerPrompt::Abandon()
{
    const std::lock_guard lock(m_mutex);
    m_bAbandoned = true;
    m_answered.notify_one();
}

}  // namespace quorbit
