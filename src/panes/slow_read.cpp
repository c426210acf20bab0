// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/slow_read.h"

#include <chrono>

namespace quorbit {
namespace {

constexpr std::chrono::milliseconds kReading{500};
constexpr std::chrono::milliseconds kNotAnswering{5000};

void Start(QTimer& timer, std::chrono::milliseconds time, std::function<void()> act)
{
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer, std::move(act));
    timer.start(time);
}

}  // namespace

SlowRead::SlowRead(std::function<void(const QString&)> show)
{
    Start(m_reading, kReading, [show] { show(QStringLiteral("Reading...")); });
    Start(m_notAnswering, kNotAnswering, [show] { show(QStringLiteral("Not answering")); });
}

}  // namespace quorbit
