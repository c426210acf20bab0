// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The sizes that dialogs remember. User interface thread only.

#pragma once

#include <QDialog>
#include <QSize>
#include <string>

#include "batch/profile.h"

namespace quorbit {

// Gives the dialog the size that it was closed with the last time, within the screen, and stores
// its size whenever it closes. To be called once its controls are laid out. The profile may be
// null, and outlives the dialog; setting: one of the section "Dialogs".
void RememberSize(QDialog& dialog, const Profile* profile, Setting setting);

// The size in a text such as "640x480"; an invalid one if it is no such text.
[[nodiscard]] QSize SizeOfText(const std::string& text);

}  // namespace quorbit
