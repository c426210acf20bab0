// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Services used by the panes. Pointers are not owned and must outlive the panes. User interface
// thread only.

#pragma once

#include <QIcon>
#include <cstdint>
#include <functional>

#include "batch/profile.h"
#include "batch/prompts.h"
#include "document/qrb_doc.h"
#include "panes/item_icons.h"
#include "platform/shell/shell_folder.h"

namespace quorbit {

// Icons of delete entries and of all other entries.
struct EntryMarks {
    QIcon deletes;
    QIcon others;
};

struct PaneServices {
    CQRBDoc* pDoc = nullptr;
    const Profile* pProfile = nullptr;
    Prompts* pPrompts = nullptr;
    const ItemIcons* pIcons = nullptr;
    EntryMarks marks{};
    ShellFolderPtr desktop;
    std::uint32_t nRunMode = 0;             // run mode of the application; 0 if interactive
    std::function<void(int)> sendCommand;   // sends to the main window; returns when handled
    std::function<void(int)> postCommand;   // the same, but from the event loop
    std::function<void(CView*)> setActive;  // called when a pane gets the focus
    std::function<bool()> isFrameMinimised;
};

}  // namespace quorbit
