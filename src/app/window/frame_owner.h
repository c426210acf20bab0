// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The application as its main window sees it. User interface thread only.

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
    // Shows the chapter on what has the focus; the contents if there is none.
    virtual void OpenHelpOnFocus() = 0;

    // Asks to save; false: the window stays, or a run is on.
    [[nodiscard]] virtual bool CanCloseFrame() = 0;
    virtual void OnFrameClosed() = 0;
};

}  // namespace quorbit
