// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The toolbar of the main window: nine labelled buttons. User interface thread only.

#pragma once

#include <span>

#include "app/window/command_actions.h"
#include "look/flat_tool_bar.h"

namespace quorbit {

// Its commands from left to right, 0 for a separator.
[[nodiscard]] std::span<const int> ToolBarCommands();

// The bar, which belongs to the parent, as the actions do to their owner.
[[nodiscard]] CFlatToolBar* MakeMainToolBar(QWidget* parent, CommandActions& actions);

}  // namespace quorbit
