// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Reports that a folder takes long to read, so that it does not look empty meanwhile. User
// interface thread only.

#pragma once

#include <QString>
#include <QTimer>
#include <functional>

namespace quorbit {

class SlowRead {
public:
    // Calls `show` from the event loop: with "Reading..." after half a second, with "Not answering"
    // after five seconds without an answer.
    explicit SlowRead(std::function<void(const QString&)> show);
    ~SlowRead() = default;
    SlowRead(const SlowRead&) = delete;
    SlowRead& operator=(const SlowRead&) = delete;

    // A part of the folder has arrived.
    void Answered() { m_notAnswering.stop(); }

private:
    QTimer m_reading;
    QTimer m_notAnswering;
};

}  // namespace quorbit
