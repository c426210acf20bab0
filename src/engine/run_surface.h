// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Receives the progress of a run. Implemented by the dialog, the console and tests. Implementations
// must store the values and return without waiting for the display; only prompts and message boxes
// may block. Worker thread only.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "batch/prompts.h"

namespace quorbit {

enum class RunText { CurrentFile, DestFile, Action, FileSize, TotalCount };
enum class RunCounter { FilesLeft, Copy, Sync, Delete, DidntSync, Backup, Error };

// The phases of a run, in this order. A phase can be missing, but never occurs twice.
enum class RunPhase {
    Counting,    // the count pass
    Processing,  // the process pass; the files left change only when a unit is finished
    Finishing,  // all work is done and, if requested, synced; only the footer of the log is missing
    Ended,      // all values are final
    Closed,     // the application must exit; only with kRunInvisible or kRunAndQuit
};

class RunSurface {
public:
    virtual ~RunSurface() = default;

    // text is valid only during the call.
    virtual void ShowText(RunText which, std::string_view text) = 0;
    virtual void ShowCounter(RunCounter which, std::int32_t value) = 0;
    // Bytes copied since the last call.
    virtual void AddBytes(std::uint64_t bytes) = 0;
    // A phase starts. total: the units to process for Processing, otherwise 0. Closed is the last
    // call; the context may be destroyed before it returns.
    virtual void OnPhase(RunPhase phase, std::int32_t total) = 0;

    // Shows an error, which is already logged and counted. text has no line end.
    virtual void ShowError(std::string_view text) = 0;
    // Shows a warning, which is neither logged nor counted. text names the file and has no line
    // end.
    virtual void ShowWarning(std::string_view text) = 0;
    // Asks a Yes/No question and returns true for Yes. An empty caption stands for the name of the
    // application.
    virtual bool AskYesNo(std::string_view text, std::string_view caption) = 0;
    // Shows a message box with OK. An empty caption stands for the name of the application.
    virtual void ShowMessage(std::string_view text, std::string_view caption, PromptIcon icon) = 0;
};

}  // namespace quorbit
