// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the dialogs work with. Nothing is owned, all of it outlives the dialogs. User interface
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
    ShellFolderPtr desktop;  // null: folders show nothing
    DriveMap drives;
    const Profile* pProfile = nullptr;  // null: no dialog remembers its size
    std::function<QWidget*()> parent;   // window over which a dialog opens; may be empty

    [[nodiscard]] QWidget* Parent() const { return parent ? parent() : nullptr; }
};

}  // namespace quorbit
