// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A run without a window. Silent, but for errors on standard error; on a terminal also one live
// line.

#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "engine/run_surface.h"

namespace quorbit {

// Called by the worker only.
class ConsoleSurface : public RunSurface {
public:
    // Where the words go. A live line is drawn only if there is a width for it.
    struct Streams {
        std::function<void(std::string_view)> out;
        std::function<void(std::string_view)> error;
        std::function<int()> liveWidth;  // columns of the terminal; 0: there is none
    };
    // elapsed gives the elapsed time of the run as text.
    ConsoleSurface(Streams streams, std::function<std::string()> elapsed);

    void ShowText(RunText which, std::string_view text) override;
    void ShowCounter(RunCounter which, std::int32_t value) override;
    void AddBytes(std::uint64_t bytes) override;
    void OnPhase(RunPhase phase, std::int32_t total) override;
    void ShowError(std::string_view text) override;
    // Nobody is there to answer: No.
    bool AskYesNo(std::string_view text, std::string_view caption) override;
    void ShowMessage(std::string_view text, std::string_view caption, PromptIcon icon) override;

private:
    void Draw();
    void Erase();

    Streams m_streams;
    std::function<std::string()> m_elapsed;
    std::string m_currentFile;
    std::int32_t m_nFilesLeft = 0;
    std::chrono::steady_clock::time_point m_lastDrawn{};
    bool m_bCounting = true;
    bool m_bDrawn = false;
};

// Standard output and standard error of the process; the live line if standard output is a
// terminal.
[[nodiscard]] ConsoleSurface::Streams StandardStreams();

// Text cut to a number of columns, the middle replaced by "..." where it is too long. Characters
// are counted as one column.
[[nodiscard]] std::string FitColumns(const std::string& text, std::size_t columns);

}  // namespace quorbit
