// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Shows an unattended run on the console: errors on standard error and, on a terminal, a progress
// line on standard output.

#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "engine/run_surface.h"

namespace quorbit {

// Worker thread only.
class ConsoleSurface : public RunSurface {
public:
    // The outputs. The progress line is drawn only if liveWidth returns a width.
    struct Streams {
        std::function<void(std::string_view)> out;
        std::function<void(std::string_view)> error;
        std::function<int()> liveWidth;  // columns of the terminal; 0: not a terminal
    };
    // elapsed: returns the elapsed time of the run as text.
    ConsoleSurface(Streams streams, std::function<std::string()> elapsed);

    void ShowText(RunText which, std::string_view text) override;
    void ShowCounter(RunCounter which, std::int32_t value) override;
    void AddBytes(std::uint64_t bytes) override;
    void OnPhase(RunPhase phase, std::int32_t total) override;
    void ShowError(std::string_view text) override;
    void ShowWarning(std::string_view text) override;
    // Returns No: an unattended run asks no questions.
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

// Returns the standard output and standard error of the process. The progress line is on if
// standard output is a terminal.
[[nodiscard]] ConsoleSurface::Streams StandardStreams();

// Shortens UTF-8 text to a number of columns; "..." replaces the middle. Counts each code point as
// one column.
[[nodiscard]] std::string FitColumns(const std::string& text, std::size_t columns);

}  // namespace quorbit
