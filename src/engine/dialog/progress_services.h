// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a run in a window needs from the program around it.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "batch/prompts.h"
#include "engine/dialog/text_editor.h"
#include "platform/file_system.h"
#include "platform/log_output.h"
#include "platform/path_text.h"
#include "platform/process_runner.h"

namespace quorbit {

// All functions must be there. They are called on the user interface thread, readOptFlags on the
// worker too, though never on both at once. The objects are not owned and must outlive the dialog;
// those for the disk and for processes are the worker's while a run is on.
struct ProgressServices {
    FileSystem* pFiles = nullptr;
    ProcessRunner* pProcesses = nullptr;
    Prompts* pPrompts = nullptr;
    TextEditor* pTextEditor = nullptr;
    DriveMap drives;

    std::uint32_t nRunMode = 0;  // kRunAndQuit, kRunAndStayOpen, kRunInvisible
    bool bSyncAtEnd = true;      // wait for the disk before the footer of the log is written

    std::function<std::uint32_t()> readOptFlags;  // kOptSuppressErrors, kOptRefreshViews
    // Nothing, or false, if the value cannot be had: that has been told, and the program is about
    // to end.
    std::function<std::optional<std::string>()> installPath;  // the folder of the logs
    std::function<bool(const std::string&)> storeLogPath;
    std::function<std::optional<std::string>()> readLogPath;  // what was stored last
    std::function<Result<std::unique_ptr<LogOutput>>(const std::string&)> createLog =
        CreateLogOutput;

    std::function<void(int)> setExitCode;  // of the process, should it end
    std::function<void()> postRefresh;     // asks the main window for a refresh, later
    std::function<void()> postExit;        // asks the main window to close, later
    std::function<void(int)> endProgram;   // ends the program now, with this exit code
};

}  // namespace quorbit
