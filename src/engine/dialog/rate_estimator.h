// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// How fast a run is, and how long it may still take. A run knows how many files are left, not how
// large they are. So work is measured in files and in bytes together: a file costs as much as so
// many bytes, and those that are left are taken to be as large as those that are done. The pace is
// that of the last half minute.

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace quorbit {

struct RunProgress {
    std::int64_t filesDone = 0;
    std::optional<std::int64_t> filesLeft;  // nothing if the count was given up
    std::uint64_t bytesDone = 0;
};

class RateEstimator {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    // How far the run has come at a time. The first call is the start. Times do not run backwards.
    void Update(TimePoint now, const RunProgress& progress);
    // As Update, but the time since the last call was no time of work: a box was open.
    void Skip(TimePoint now, const RunProgress& progress);

    // Of the last seconds, and over the whole run. Nothing in the first half second.
    [[nodiscard]] std::optional<double> BytesPerSecond() const;
    [[nodiscard]] std::optional<double> MeanBytesPerSecond() const;
    // Nothing until the forecast has held for a few seconds, and while it does not.
    [[nodiscard]] std::optional<std::chrono::seconds> TimeLeft() const;

private:
    // A rate that forgets: what lies `memory` seconds back counts a third.
    struct FadingRate {
        double memory;
        double amount = 0;
        double seconds = 0;
        void Add(double more, double inSeconds);
        [[nodiscard]] double Rate() const { return seconds > 0 ? amount / seconds : 0; }
    };

    [[nodiscard]] std::optional<double> Forecast() const;
    void Follow(std::optional<double> forecast, double inSeconds);

    RunProgress m_start;
    std::optional<TimePoint> m_last;
    RunProgress m_progress;
    double m_workedSeconds = 0;
    FadingRate m_bytes{3};
    FadingRate m_work{30};
    std::optional<double> m_secondsLeft;
    double m_steadySeconds = 0;  // for how long the forecast has held
};

}  // namespace quorbit
