// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// SIGINT, SIGTERM and SIGHUP as calls in the event loop.

#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

#include "platform/posix/unique_fd.h"

namespace quorbit {

class StopNotifier {
public:
    // Catches the signals from now on; at most one object a process. onStop is called on the thread
    // that made this object, once for signals that come close together. Where the system has no
    // pipe left, signals keep their default.
    explicit StopNotifier(std::function<void()> onStop);

private:
    void Drain() const;

    UniqueFd m_pipe;
    std::unique_ptr<QSocketNotifier> m_pNotifier;
};

}  // namespace quorbit
