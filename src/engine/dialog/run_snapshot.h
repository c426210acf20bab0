// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The newest values of a run. The worker stores them several times a file, the dialog takes them
// when it paints: what was overwritten in between is never shown, and neither side waits for the
// other longer than a few strings take to copy.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "engine/run_surface.h"

namespace quorbit {

struct RunFigures {
    std::array<std::int32_t, 7> counters{};  // by RunCounter
    std::uint64_t bytes = 0;                 // copied so far
    RunPhase phase = RunPhase::Counting;
    std::optional<std::int32_t> total;  // units to process; none before the process pass

    [[nodiscard]] std::int32_t Counter(RunCounter which) const
    {
        return counters[static_cast<std::size_t>(which)];
    }
    // Units done.
    [[nodiscard]] std::int32_t Steps() const
    {
        return total ? *total - Counter(RunCounter::FilesLeft) : 0;
    }
};

struct RunValues {
    RunFigures figures;
    std::array<std::string, 5> texts;  // by RunText, as the engine gave them

    [[nodiscard]] const std::string& Text(RunText which) const
    {
        return texts[static_cast<std::size_t>(which)];
    }
};

// Any thread.
class RunSnapshot {
public:
    void SetText(RunText which, std::string_view text);
    // Runs change, which must not block, on the figures.
    template <class Change>
    void Set(Change change)
    {
        const std::lock_guard lock(m_mutex);
        change(m_figures);
        m_bChanged = true;
    }

    // Brings values up to date, which must be what the last call left. False if nothing changed.
    [[nodiscard]] bool Take(RunValues& values);

private:
    struct Text {
        std::string text;
        bool bChanged = false;
    };

    std::mutex m_mutex;
    RunFigures m_figures;
    std::array<Text, 5> m_texts;
    bool m_bChanged = false;
};

}  // namespace quorbit
