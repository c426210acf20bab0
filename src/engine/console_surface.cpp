// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/console_surface.h"

#include <chrono>
#include <cstdio>
#include <utility>
#include <vector>

#include "platform/path_text.h"
#include "platform/terminal.h"

namespace quorbit {
namespace {

constexpr auto kBetweenDraws = std::chrono::milliseconds(200);

void Print(std::FILE* stream, std::string_view text)
{
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fflush(stream);
}

}  // namespace

ConsoleSurface::Streams StandardStreams()
{
    return {[](std::string_view text) { Print(stdout, text); },
            [](std::string_view text) { Print(stderr, text); }, TerminalWidth};
}

std::string FitColumns(const std::string& text, std::size_t columns)
{
    std::vector<std::size_t> starts;  // of the code points
    for (std::size_t i = 0; i < text.size(); ++i) {
        // UTF-8 continuation bytes are 10xxxxxx (RFC 3629, 3).
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
            starts.push_back(i);
        }
    }
    if (starts.size() <= columns) {
        return text;
    }
    if (columns <= 3) {
        return text.substr(0, starts[columns]);
    }
    const std::size_t head = (columns - 3) / 2;
    const std::size_t tail = columns - 3 - head;
    return text.substr(0, starts[head]) + "..." + text.substr(starts[starts.size() - tail]);
}

ConsoleSurface::ConsoleSurface(Streams streams, std::function<std::string()> elapsed)
    : m_streams(std::move(streams)), m_elapsed(std::move(elapsed))
{
}

void ConsoleSurface::ShowText(RunText which, std::string_view text)
{
    if (which == RunText::CurrentFile) {
        const std::lock_guard lock(m_stateMutex);
        m_currentFile.assign(text);
    }
}

void ConsoleSurface::ShowCounter(RunCounter which, std::int32_t value)
{
    if (which == RunCounter::FilesLeft) {
        const std::lock_guard lock(m_stateMutex);
        m_nFilesLeft = value;
    }
}

void ConsoleSurface::AddBytes(std::uint64_t) {}

void ConsoleSurface::OnPhase(RunPhase phase, std::int32_t)
{
    {
        const std::lock_guard lock(m_stateMutex);
        m_bCounting = phase == RunPhase::Counting;
    }
    if (phase == RunPhase::Counting && m_streams.liveWidth() > 0) {
        m_drawer = std::jthread([this](const std::stop_token& end) { Work(end); });
    }
    if (phase == RunPhase::Ended) {
        m_drawer = {};
        const std::lock_guard lock(m_outputMutex);
        Erase();
    }
}

void ConsoleSurface::ShowError(std::string_view text)
{
    std::string line;
    {
        const std::lock_guard lock(m_stateMutex);
        line = m_currentFile.empty() ? "" : m_currentFile + ": ";
    }
    Announce(line.append(text));
}

void ConsoleSurface::ShowWarning(std::string_view text)
{
    Announce(std::string("warning: ").append(text));
}

bool ConsoleSurface::AskYesNo(std::string_view, std::string_view)
{
    return false;
}

void ConsoleSurface::ShowMessage(std::string_view text, std::string_view, PromptIcon)
{
    Announce(text);
}

void ConsoleSurface::Announce(std::string_view text)
{
    const std::lock_guard lock(m_outputMutex);
    Erase();
    m_streams.error("quorbit: " + Printable(text) + "\n");
}

void ConsoleSurface::Work(const std::stop_token& end)
{
    std::unique_lock lock(m_stateMutex);
    while (!m_ended.wait_for(lock, end, kBetweenDraws, [] { return false; }) &&
           !end.stop_requested()) {
        lock.unlock();
        Draw();
        lock.lock();
    }
}

std::string ConsoleSurface::ProgressLine()
{
    const std::string elapsed = m_elapsed();
    const std::lock_guard lock(m_stateMutex);
    const std::string files =
        std::to_string(m_nFilesLeft) + (m_nFilesLeft == 1 ? " file" : " files");
    return elapsed + "  " + files + (m_bCounting ? " found" : " left  " + Printable(m_currentFile));
}

void ConsoleSurface::Draw()
{
    const std::lock_guard lock(m_outputMutex);
    const int width = m_streams.liveWidth();
    if (width <= 0) {
        return;
    }
    // Carriage return, then EL to erase the rest of the line (ECMA-48, 8.3.41). The last column
    // stays empty, because a character there makes some terminals wrap.
    m_streams.out("\r" + FitColumns(ProgressLine(), static_cast<std::size_t>(width) - 1) +
                  "\033[K");
    m_bDrawn = true;
}

void ConsoleSurface::Erase()
{
    if (m_bDrawn) {
        m_streams.out("\r\033[K");
    }
    m_bDrawn = false;
}

}  // namespace quorbit
