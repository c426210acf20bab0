// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/dialog_surface.h"

#include <string>

namespace quorbit {

void DialogSurface::ShowText(RunText which, std::string_view text)
{
    m_snapshot.SetText(which, text);
}

void DialogSurface::ShowCounter(RunCounter which, std::int32_t value)
{
    m_snapshot.Set([=](RunFigures& f) { f.counters[static_cast<std::size_t>(which)] = value; });
}

void DialogSurface::AddBytes(std::uint64_t bytes)
{
    m_snapshot.Set([=](RunFigures& f) { f.bytes += bytes; });
}

void DialogSurface::OnPhase(RunPhase phase, std::int32_t total)
{
    m_snapshot.Set([=](RunFigures& f) {
        f.phase = phase;
        if (phase == RunPhase::Processing) {
            f.total = total;
        }
    });
}

// Does nothing: the error is in the log and in the error counter.
void DialogSurface::ShowError(std::string_view) {}

// Does nothing: the problems of the run keep it.
void DialogSurface::ShowWarning(std::string_view) {}

bool DialogSurface::AskYesNo(std::string_view text, std::string_view caption)
{
    return m_prompt.Ask(
        {std::string(text), std::string(caption), PromptIcon::Exclamation, PromptButtons::YesNo});
}

void DialogSurface::ShowMessage(std::string_view text, std::string_view caption, PromptIcon icon)
{
    (void)m_prompt.Ask({std::string(text), std::string(caption), icon, PromptButtons::Ok});
}

}  // namespace quorbit
