// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Whoever watches a run: the progress dialog, the console, a test. The worker calls this surface
// and never waits for a screen: an implementation stores what it is told and shows it when it
// likes. Only the prompts and boxes may block. All calls come from the worker thread.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "batch/prompts.h"

namespace quorbit {

enum class RunText { CurrentFile, DestFile, Action, FileSize, TotalCount };
enum class RunCounter { FilesLeft, Copy, Sync, Delete, DidntSync, Backup, Error };

class RunSurface {
public:
    virtual ~RunSurface() = default;

    // text is only valid during the call.
    virtual void ShowText(RunText which, std::string_view text) = 0;
    virtual void ShowCounter(RunCounter which, std::int32_t value) = 0;
    // Bytes copied since the last call.
    virtual void AddBytes(std::uint64_t bytes) = 0;

    virtual void EnableStopCounting(bool enable) = 0;
    virtual void EnableViewLog(bool enable) = 0;
    virtual void SetProgressRange(std::int32_t range) = 0;  // from 0, step 1
    virtual void StepProgress() = 0;
    // The Cancel button becomes "OK".
    virtual void ShowRunEnded() = 0;

    // An error was counted and logged. text ends without a line end.
    virtual void ShowError(std::string_view text) = 0;
    // Yes or No; true for Yes. An empty caption means the application's own.
    virtual bool AskYesNo(std::string_view text, std::string_view caption) = 0;
    // A box with OK. An empty caption means the application's own.
    virtual void ShowMessage(std::string_view text, std::string_view caption, PromptIcon icon) = 0;

    // Closes the run and ends the application. The context may be gone when this returns.
    virtual void CloseAndExit() = 0;
};

}  // namespace quorbit
