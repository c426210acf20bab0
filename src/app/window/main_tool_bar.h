// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Creates the toolbar of the main window, with nine labelled buttons. User interface thread only.

#pragma once

#include <span>

#include "app/window/command_actions.h"
#include "look/flat_tool_bar.h"

namespace quorbit {

// Returns its commands from left to right, 0 for a separator.
[[nodiscard]] std::span<const int> ToolBarCommands();

// Creates the toolbar, owned by the parent. `actions` keeps its actions and must outlive the bar.
[[nodiscard]] CFlatToolBar* MakeMainToolBar(QWidget* parent, CommandActions& actions);

}  // namespace quorbit
