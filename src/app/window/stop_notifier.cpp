// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/stop_notifier.h"

#include <unistd.h>

#include <array>
#include <utility>

#include "platform/posix/signal_pipe.h"

namespace quorbit {

StopNotifier::StopNotifier(std::function<void()> onStop)
{
    auto pipe = CatchStopSignals();
    if (!pipe) {
        return;
    }
    m_pipe = std::move(*pipe);
    m_pNotifier = std::make_unique<QSocketNotifier>(m_pipe.Get(), QSocketNotifier::Read);
    QObject::connect(m_pNotifier.get(), &QSocketNotifier::activated, m_pNotifier.get(),
                     [this, onStop = std::move(onStop)] {
                         Drain();
                         onStop();
                     });
}

void StopNotifier::Drain() const
{
    std::array<char, 64> bytes{};
    while (::read(m_pipe.Get(), bytes.data(), bytes.size()) > 0) {
    }
}

}  // namespace quorbit
