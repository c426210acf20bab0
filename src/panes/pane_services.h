// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the panes work with. Nothing is owned, all of it outlives the panes. User interface thread
// only.

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

// Pictures in front of the entries: of one that deletes, and of every other one.
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
    std::uint32_t nRunMode = 0;             // of the application; 0 in an interactive start
    std::function<void(int)> sendCommand;   // to the main window; returns when it is carried out
    std::function<void(int)> postCommand;   // the same, once the event loop is free
    std::function<void(CView*)> setActive;  // the pane has got the focus
    std::function<bool()> isFrameMinimised;
};

}  // namespace quorbit
