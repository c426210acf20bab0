// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Work in a thread of its own that its owner can abandon at any time. A thread that hangs in a
// system call (a server that does not answer) cannot be stopped; it is left behind with what it
// holds and ends when the call returns.

#pragma once

#include <functional>
#include <memory>
#include <stop_token>

namespace quorbit {

// The functions are for the owner's thread. One task at a time.
class BackgroundTask {
public:
    // The work's connection to its owner. Background thread only.
    class Link {
    public:
        // Set once the task is abandoned.
        [[nodiscard]] virtual std::stop_token Stop() const = 0;
        // Calls the function unless the task was abandoned. Abandon() waits for a call in progress,
        // so `call` may use the owner but must return soon.
        virtual void IfWanted(const std::function<void()>& call) = 0;

    protected:
        ~Link() = default;
    };
    using Work = std::function<void(Link&)>;

    BackgroundTask() = default;
    ~BackgroundTask() { Abandon(); }
    BackgroundTask(const BackgroundTask&) = delete;
    BackgroundTask& operator=(const BackgroundTask&) = delete;

    // Abandons the previous task and starts `work`. Everything that `work` captures must stay valid
    // after this object is gone. Returns false if the system cannot create a thread.
    [[nodiscard]] bool Start(Work work);
    // Never waits for the work itself.
    void Abandon();

private:
    class State;
    std::shared_ptr<State> m_state;  // shared with the thread
};

}  // namespace quorbit
