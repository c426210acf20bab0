// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a run in a window needs from the program around it.

#pragma once

#include <functional>

#include "batch/prompts.h"
#include "engine/dialog/text_editor.h"
#include "engine/run_start.h"
#include "platform/required.h"

namespace quorbit {

// The functions are called on the user interface thread. The objects are not owned and must outlive
// the dialog.
struct ProgressServices {
    RunServices run;
    Required<Prompts*> pPrompts;
    Required<TextEditor*> pTextEditor;

    Required<std::function<void(int)>> setExitCode;  // sets the exit code of the process
    Required<std::function<void()>> postRefresh;     // asks the main window for a refresh, later
    Required<std::function<void()>> postExit;        // asks the main window to close, later
    Required<std::function<void(int)>> endProgram;   // ends the program now, with this exit code
};

}  // namespace quorbit
