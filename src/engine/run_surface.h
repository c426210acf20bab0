// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The view of a run: the progress dialog, the console, a test. The worker calls this surface and
// never waits for a screen: an implementation stores what it is told and shows it when it likes.
// Only the prompts and boxes may block. All calls come from the worker thread.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "batch/prompts.h"

namespace quorbit {

enum class RunText { CurrentFile, DestFile, Action, FileSize, TotalCount };
enum class RunCounter { FilesLeft, Copy, Sync, Delete, DidntSync, Backup, Error };

// The phases of a run, in their order. A phase may be left out, none comes twice.
enum class RunPhase {
    Counting,    // the count pass
    Processing,  // the process pass: from here on only a finished unit changes the files left
    Finishing,   // the work is done and on the disk; the log is in the file but for its footer
    Ended,       // all values are the closing ones
    Closed,      // only in the modes that end by themselves: the application is to end
};

class RunSurface {
public:
    virtual ~RunSurface() = default;

    // text is only valid during the call.
    virtual void ShowText(RunText which, std::string_view text) = 0;
    virtual void ShowCounter(RunCounter which, std::int32_t value) = 0;
    // Bytes copied since the last call.
    virtual void AddBytes(std::uint64_t bytes) = 0;
    // A phase begins. total: the units to process, in Processing; else 0. Nothing follows Closed,
    // and the context may be gone when that call returns.
    virtual void OnPhase(RunPhase phase, std::int32_t total) = 0;

    // An error was counted and logged. text ends without a line end.
    virtual void ShowError(std::string_view text) = 0;
    // Yes or No; true for Yes. An empty caption means the application's own.
    virtual bool AskYesNo(std::string_view text, std::string_view caption) = 0;
    // A box with OK. An empty caption means the application's own.
    virtual void ShowMessage(std::string_view text, std::string_view caption, PromptIcon icon) = 0;
};

}  // namespace quorbit
