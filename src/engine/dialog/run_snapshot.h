// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The latest values of a run. The worker stores them several times per file; the dialog reads them
// when it updates. Overwritten values are never shown, and either side blocks the other only while
// a few strings are copied.

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
    std::array<std::int32_t, 7> counters{};  // indexed by RunCounter
    std::uint64_t bytes = 0;                 // bytes copied so far
    RunPhase phase = RunPhase::Counting;
    std::optional<std::int32_t> total;  // units to process; nullopt before the process pass

    [[nodiscard]] std::int32_t Counter(RunCounter which) const
    {
        return counters[static_cast<std::size_t>(which)];
    }
    // Returns the number of units done.
    [[nodiscard]] std::int32_t Steps() const
    {
        return total ? *total - Counter(RunCounter::FilesLeft) : 0;
    }
};

struct RunValues {
    RunFigures figures;
    std::array<std::optional<std::string>, 5> texts;  // indexed by RunText, unescaped

    // Nullopt: never reported.
    [[nodiscard]] const std::optional<std::string>& Text(RunText which) const
    {
        return texts[static_cast<std::size_t>(which)];
    }
};

// Any thread.
class RunSnapshot {
public:
    void SetText(RunText which, std::string_view text);
    // Calls `change` with the figures while the mutex is locked; it must not block.
    template <class Change>
    void Set(Change change)
    {
        const std::lock_guard lock(m_mutex);
        change(m_figures);
        m_bChanged = true;
    }

    // Updates `values`, which must be unchanged since the last call. Returns false if nothing has
    // changed.
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
