// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/background_task.h"

#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace quorbit {

class BackgroundTask::State final : public Link {
public:
    [[nodiscard]] std::stop_token Stop() const override { return m_stop.get_token(); }

    void IfWanted(const std::function<void()>& call) override
    {
        const std::lock_guard lock(m_mutex);
        if (!m_stop.stop_requested()) {
            call();
        }
    }

    void Abandon()
    {
        const std::lock_guard lock(m_mutex);
        m_stop.request_stop();
    }

private:
    std::mutex m_mutex;  // held during a call to the owner, so that Abandon() waits for it
    std::stop_source m_stop;
};

bool BackgroundTask::Start(Work work)
{
    Abandon();
    auto state = std::make_shared<State>();
    try {
        // Detached, since joining would wait for a thread that may hang.
        std::thread([state, work = std::move(work)] { work(*state); }).detach();
    } catch (const std::system_error&) {
        return false;
    }
    m_state = std::move(state);
    return true;
}

void BackgroundTask::Abandon()
{
    if (const auto state = std::exchange(m_state, nullptr)) {
        state->Abandon();
    }
}

}  // namespace quorbit
