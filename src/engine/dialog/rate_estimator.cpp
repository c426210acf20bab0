// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/rate_estimator.h"

#include <algorithm>
#include <cmath>

namespace quorbit {
namespace {

// Overhead of a file, expressed in bytes copied in the same time. A compromise: about a quarter of
// this on an SSD, about four times as much on a hard disk or a network share.
constexpr double kFileInBytes = 256 * 1024;

constexpr double kTellingSpeedAfter = 0.5;  // seconds
constexpr double kDamping = 5;              // seconds; time constant for following a new forecast
constexpr double kSteadyAfter = 3;      // seconds; a forecast is shown after being stable this long
constexpr double kSteadyWithin = 0.25;  // largest relative deviation of a stable forecast
constexpr double kLostBeyond = 0.6;     // discard the forecast above this relative deviation
constexpr double kLeast = 4;            // seconds; deviations are relative to at least this
constexpr double kMost = 400.0 * 3600;  // seconds; longer forecasts are not shown

double Work(std::int64_t files, std::uint64_t bytes)
{
    return static_cast<double>(files) + static_cast<double>(bytes) / kFileInBytes;
}

}  // namespace

void RateEstimator::FadingRate::Add(double more, double inSeconds)
{
    const double keep = std::exp(-inSeconds / memory);
    amount = amount * keep + more;
    seconds = seconds * keep + inSeconds;
}

void RateEstimator::Update(TimePoint now, const RunProgress& progress)
{
    if (!m_last || now <= *m_last) {
        return Skip(now, progress);
    }
    const double seconds = std::chrono::duration<double>(now - *m_last).count();
    const std::int64_t files = progress.filesDone - m_progress.filesDone;
    const std::uint64_t bytes = progress.bytesDone - m_progress.bytesDone;
    Skip(now, progress);
    m_workedSeconds += seconds;
    m_bytes.Add(static_cast<double>(bytes), seconds);
    m_work.Add(Work(files, bytes), seconds);
    Follow(Forecast(), seconds);
}

void RateEstimator::Skip(TimePoint now, const RunProgress& progress)
{
    m_last = now;
    m_progress = progress;
}

std::optional<double> RateEstimator::Forecast() const
{
    const std::int64_t files = m_progress.filesDone;
    if (!m_progress.filesLeft || files <= 0 || m_work.Rate() <= 0) {
        return std::nullopt;
    }
    const double workAFile = Work(files, m_progress.bytesDone) / static_cast<double>(files);
    return static_cast<double>(*m_progress.filesLeft) * workAFile / m_work.Rate();
}

// Smooths the forecast so that the time left counts down steadily, and checks how well the previous
// forecast agrees with the new one.
void RateEstimator::Follow(std::optional<double> forecast, double inSeconds)
{
    const double expected = m_secondsLeft.value_or(0) - inSeconds;
    const double larger = std::max({forecast.value_or(0), expected, kLeast});
    const double off = std::abs(forecast.value_or(0) - expected) / larger;
    if (!forecast || !m_secondsLeft || off > kLostBeyond) {
        m_secondsLeft = forecast;
        m_steadySeconds = 0;
        return;
    }
    if (off <= kSteadyWithin) {
        m_steadySeconds += inSeconds;
    } else if (m_steadySeconds < kSteadyAfter) {
        m_steadySeconds = 0;
    }
    // The first forecasts are based on little data, so follow later ones faster at first.
    const double taken = 1 - std::exp(-inSeconds / std::min(kDamping, m_workedSeconds));
    m_secondsLeft = std::max(0.0, expected + (*forecast - expected) * taken);
}

std::optional<double> RateEstimator::BytesPerSecond() const
{
    if (m_workedSeconds < kTellingSpeedAfter) {
        return std::nullopt;
    }
    return m_bytes.Rate();
}

std::optional<double> RateEstimator::MeanBytesPerSecond() const
{
    if (m_workedSeconds < kTellingSpeedAfter) {
        return std::nullopt;
    }
    return static_cast<double>(m_progress.bytesDone) / m_workedSeconds;
}

std::optional<std::chrono::seconds> RateEstimator::TimeLeft() const
{
    if (m_steadySeconds < kSteadyAfter || !m_secondsLeft || *m_secondsLeft > kMost) {
        return std::nullopt;
    }
    return std::chrono::seconds(std::llround(*m_secondsLeft));
}

}  // namespace quorbit
