// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/console_surface.h"

#include <cstdio>
#include <utility>
#include <vector>

#include "platform/coarse_clock.h"
#include "platform/path_text.h"
#include "platform/terminal.h"

namespace quorbit {
namespace {

constexpr auto kBetweenDraws = std::chrono::milliseconds(100);

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
    if (which != RunText::CurrentFile) {
        return;
    }
    m_currentFile.assign(text);
    Draw();
}

void ConsoleSurface::ShowCounter(RunCounter which, std::int32_t value)
{
    if (which != RunCounter::FilesLeft) {
        return;
    }
    m_nFilesLeft = value;
    if (m_bCounting) {
        Draw();
    }
}

void ConsoleSurface::AddBytes(std::uint64_t)
{
    Draw();
}

void ConsoleSurface::OnPhase(RunPhase phase, std::int32_t)
{
    m_bCounting = phase == RunPhase::Counting;
    if (phase == RunPhase::Ended) {
        Erase();
    }
}

void ConsoleSurface::ShowError(std::string_view text)
{
    Erase();
    std::string line = "quorbit: ";
    if (!m_currentFile.empty()) {
        line += Printable(m_currentFile) + ": ";
    }
    m_streams.error(line + Printable(text) + "\n");
}

void ConsoleSurface::ShowWarning(std::string_view text)
{
    Erase();
    m_streams.error("quorbit: warning: " + Printable(text) + "\n");
}

bool ConsoleSurface::AskYesNo(std::string_view, std::string_view)
{
    return false;
}

void ConsoleSurface::ShowMessage(std::string_view text, std::string_view, PromptIcon)
{
    Erase();
    m_streams.error("quorbit: " + std::string(text) + "\n");
}

void ConsoleSurface::Draw()
{
    const auto now = CoarseNow();
    if (now - m_lastDrawn < kBetweenDraws) {
        return;
    }
    m_lastDrawn = now;
    const int width = m_streams.liveWidth();
    if (width <= 0) {
        return;
    }
    std::string line = m_elapsed() + "  " + std::to_string(m_nFilesLeft);
    line += m_bCounting ? " files found" : " files left  " + Printable(m_currentFile);
    // Carriage return, then EL to erase the rest of the line (ECMA-48, 8.3.41). The last column
    // stays empty, because a character there makes some terminals wrap.
    m_streams.out("\r" + FitColumns(line, static_cast<std::size_t>(width) - 1) + "\033[K");
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
