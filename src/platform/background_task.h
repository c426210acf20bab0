// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs work in a background thread that its owner can abandon at any time. A thread that hangs in a
// system call, for example on a server that does not respond, cannot be stopped. It keeps what it
// captured and ends when the call returns.

#pragma once

#include <functional>
#include <memory>
#include <stop_token>

namespace quorbit {

// Owner's thread only. Runs one task at a time.
class BackgroundTask {
public:
    // The work's connection to its owner. Background thread only.
    class Link {
    public:
        // A stop is requested when the task is abandoned.
        [[nodiscard]] virtual std::stop_token Stop() const = 0;
        // Calls `call` unless the task was abandoned. Abandon() waits for a call in progress, so
        // `call` may use the owner but must return soon.
        virtual void IfWanted(const std::function<void()>& call) = 0;

    protected:
        ~Link() = default;
    };
    using Work = std::function<void(Link&)>;

    BackgroundTask() = default;
    ~BackgroundTask() { Abandon(); }
    BackgroundTask(const BackgroundTask&) = delete;
    BackgroundTask& operator=(const BackgroundTask&) = delete;

    // Abandons the previous task and starts `work` in a detached thread. Everything that `work`
    // captures must stay valid after this object is destroyed. Returns false if the system cannot
    // create a thread.
    [[nodiscard]] bool Start(Work work);
    // Requests a stop. Waits at most for a call of Link::IfWanted in progress, never for the work
    // itself.
    void Abandon();

private:
    class State;
    std::shared_ptr<State> m_state;  // shared with the thread
};

}  // namespace quorbit
