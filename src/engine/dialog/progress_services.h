// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Services used by the progress dialog.

#pragma once

#include <functional>

#include "batch/prompts.h"
#include "engine/dialog/text_editor.h"
#include "engine/run_start.h"
#include "platform/required.h"

namespace quorbit {

// The functions are called in the user interface thread. The objects are not owned and must outlive
// the dialog.
struct ProgressServices {
    RunServices run;
    Required<Prompts*> pPrompts;
    Required<TextEditor*> pTextEditor;

    Required<std::function<void(int)>> setExitCode;  // sets the exit code of the process
    Required<std::function<void()>> postRefresh;     // posts a refresh to the main window
    Required<std::function<void()>> postExit;        // posts a close to the main window
    Required<std::function<void(int)>> endProgram;   // exits at once with this exit code
};

}  // namespace quorbit
