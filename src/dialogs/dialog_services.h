// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Services used by the dialogs. Pointers are not owned and must outlive the dialogs. User interface
// thread only.

#pragma once

#include <QWidget>
#include <functional>

#include "batch/profile.h"
#include "batch/prompts.h"
#include "panes/item_icons.h"
#include "platform/path_text.h"
#include "platform/shell/shell_folder.h"

namespace quorbit {

struct DialogServices {
    Prompts* pPrompts = nullptr;
    const ItemIcons* pIcons = nullptr;
    ShellFolderPtr desktop;  // null: folders are shown empty
    DriveMap drives;
    const Profile* pProfile = nullptr;  // null: sizes are not remembered
    std::function<QWidget*()> parent;   // parent window of a dialog; may be empty

    [[nodiscard]] QWidget* Parent() const { return parent ? parent() : nullptr; }
};

}  // namespace quorbit
