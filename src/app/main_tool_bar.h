// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The toolbar of the main window: nine labelled buttons. User interface thread only.

#pragma once

#include <QToolBar>

#include "app/command_actions.h"

namespace quorbit {

// The bar, which belongs to the parent.
[[nodiscard]] QToolBar* MakeMainToolBar(QWidget* parent, CommandActions& actions);

// The picture of a command; null if it has none.
[[nodiscard]] QIcon IconOfCommand(int nId);

}  // namespace quorbit
