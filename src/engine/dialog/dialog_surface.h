// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The surface of a run in the progress dialog. The worker stores values and questions here without
// accessing widgets or the event queue; the dialog polls them with a timer.

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
    // Worker thread only.
    void ShowText(RunText which, std::string_view text) override;
    void ShowCounter(RunCounter which, std::int32_t value) override;
    void AddBytes(std::uint64_t bytes) override;
    void OnPhase(RunPhase phase, std::int32_t total) override;
    void ShowError(std::string_view text) override;
    void ShowWarning(std::string_view text) override;
    bool AskYesNo(std::string_view text, std::string_view caption) override;
    void ShowMessage(std::string_view text, std::string_view caption, PromptIcon icon) override;
    // Must be the worker's last call.
    void SetWorkerDone() { m_bWorkerDone = true; }

    // User interface thread only.
    [[nodiscard]] RunSnapshot& Snapshot() { return m_snapshot; }
    [[nodiscard]] WorkerPrompt& Prompt() { return m_prompt; }
    [[nodiscard]] bool WorkerDone() const { return m_bWorkerDone; }

private:
    RunSnapshot m_snapshot;
    WorkerPrompt m_prompt;
    std::atomic<bool> m_bWorkerDone = false;
};

}  // namespace quorbit
