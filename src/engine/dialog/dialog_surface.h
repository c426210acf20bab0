// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A run as the progress dialog watches it. The worker leaves everything here and touches no widget
// and no event queue; the dialog looks in many times a second.

#pragma once

#include <atomic>
#include <cstdint>
#include <string_view>

#include "engine/dialog/run_snapshot.h"
#include "engine/dialog/worker_prompt.h"
#include "engine/run_surface.h"

namespace quorbit {

class DialogSurface : public RunSurface {
public:
    // Worker.
    void ShowText(RunText which, std::string_view text) override;
    void ShowCounter(RunCounter which, std::int32_t value) override;
    void AddBytes(std::uint64_t bytes) override;
    void OnPhase(RunPhase phase, std::int32_t total) override;
    void ShowError(std::string_view text) override;
    bool AskYesNo(std::string_view text, std::string_view caption) override;
    void ShowMessage(std::string_view text, std::string_view caption, PromptIcon icon) override;
    // The last thing that a worker does here.
    void SetWorkerDone() { m_bWorkerDone = true; }

    // User interface.
    [[nodiscard]] RunSnapshot& Snapshot() { return m_snapshot; }
    [[nodiscard]] WorkerPrompt& Prompt() { return m_prompt; }
    [[nodiscard]] bool WorkerDone() const { return m_bWorkerDone; }

private:
    RunSnapshot m_snapshot;
    WorkerPrompt m_prompt;
    std::atomic<bool> m_bWorkerDone = false;
};

}  // namespace quorbit
