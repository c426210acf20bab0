// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Estimates the speed of a run and the time left. The run knows the number of files left but not
// their sizes, so work is measured in files plus bytes: each file costs a fixed number of bytes in
// addition to its size, and the files left are assumed to have the average size of those done. The
// pace is averaged over the last 30 seconds. One thread at a time.

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace quorbit {

struct RunProgress {
    std::int64_t filesDone = 0;
    std::optional<std::int64_t> filesLeft;  // nullopt if counting was stopped
    std::uint64_t bytesDone = 0;
};

class RateEstimator {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    // Reports the progress at a time. The first call marks the start of the run, whose progress is
    // zero. Times must not decrease.
    void Update(TimePoint now, const RunProgress& progress);
    // Like Update, but excludes the time since the last call, during which files were counted or a
    // message box was open.
    void Skip(TimePoint now, const RunProgress& progress);

    // Speed of the last seconds and of the whole run. Nullopt during the first half second of work.
    [[nodiscard]] std::optional<double> BytesPerSecond() const;
    [[nodiscard]] std::optional<double> MeanBytesPerSecond() const;
    // Nullopt until the forecast has been stable for a few seconds, and again when it becomes
    // unstable.
    [[nodiscard]] std::optional<std::chrono::seconds> TimeLeft() const;

private:
    // Exponentially weighted average: an amount `memory` seconds ago has the weight 1/e.
    struct FadingRate {
        double memory;  // seconds
        double amount = 0;
        double seconds = 0;
        void Add(double more, double inSeconds);
        [[nodiscard]] double Rate() const { return seconds > 0 ? amount / seconds : 0; }
    };

    [[nodiscard]] std::optional<double> Forecast() const;
    void Follow(std::optional<double> forecast, double inSeconds);

    std::optional<TimePoint> m_last;
    RunProgress m_progress;
    double m_workedSeconds = 0;
    FadingRate m_bytes{3};
    FadingRate m_work{30};
    std::optional<double> m_secondsLeft;
    double m_steadySeconds = 0;  // seconds for which the forecast has been stable
};

}  // namespace quorbit
