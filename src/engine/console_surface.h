// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Shows an unattended run on the console: errors on standard error and, on a terminal, a progress
// line on standard output. A thread of its own draws the line, so that it moves during long files
// and scripts, too.

#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "engine/run_surface.h"

namespace quorbit {

// Worker thread only, unless stated otherwise.
class ConsoleSurface : public RunSurface {
public:
    // The outputs. The progress line is drawn only if liveWidth returns a width.
    struct Streams {
        std::function<void(std::string_view)> out;
        std::function<void(std::string_view)> error;
        std::function<int()> liveWidth;  // columns of the terminal; 0: no progress line
    };
    // elapsed: returns the elapsed time of the run as text; any thread.
    ConsoleSurface(Streams streams, std::function<std::string()> elapsed);

    // Prints a line on standard error. Any thread.
    void Announce(std::string_view text);

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
    void Work(const std::stop_token& end);
    [[nodiscard]] std::string ProgressLine();
    void Draw();
    void Erase();  // with m_outputMutex locked

    Streams m_streams;
    std::function<std::string()> m_elapsed;

    // The worker never waits for the output, except to print an error.
    std::mutex m_stateMutex;
    std::string m_currentFile;      // guarded by m_stateMutex
    std::int32_t m_nFilesLeft = 0;  // guarded by m_stateMutex
    bool m_bCounting = true;        // guarded by m_stateMutex
    std::condition_variable_any m_ended;

    std::mutex m_outputMutex;
    bool m_bDrawn = false;  // guarded by m_outputMutex

    std::jthread m_drawer;  // last member: uses all of the above
};

// Returns the standard output and standard error of the process. The progress line is on if
// standard output is a terminal that can erase a line.
[[nodiscard]] ConsoleSurface::Streams StandardStreams();

// Shortens UTF-8 text to a number of columns; "..." replaces the middle. Counts each code point as
// one column.
[[nodiscard]] std::string FitColumns(const std::string& text, std::size_t columns);

}  // namespace quorbit
