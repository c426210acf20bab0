// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Interface of the application for its main window. User interface thread only.

#pragma once

#include "document/command_target.h"

namespace quorbit {

class FrameOwner : public CommandTarget {
public:
    // Shows the log of the last run.
    virtual void ViewLogFile() = 0;
    // Runs the options dialog.
    virtual void ShowOptions() = 0;
    // Shows the contents of the help.
    virtual void OpenHelp() = 0;
    // Shows the chapter on the focused control, or the contents if there is none.
    virtual void OpenHelpOnFocus() = 0;

    // Asks whether to save changes. Returns false if the window must stay open: the user cancelled,
    // saving failed, or a run is in progress.
    [[nodiscard]] virtual bool CanCloseFrame() = 0;
    // Called when the window closes, after it has stored its layout.
    virtual void OnFrameClosed() = 0;
};

}  // namespace quorbit
