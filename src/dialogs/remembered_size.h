// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Saves and restores the sizes of dialogs. User interface thread only.

#pragma once

#include <QDialog>
#include <QSize>
#include <string>

#include "batch/profile.h"

namespace quorbit {

// Restores the size that the dialog had when it was last closed, limited to the screen, and saves
// its size whenever it closes. Must be called after its controls are created and arranged.
// `profile` may be null and must outlive the dialog. `setting` is one of the section "Dialogs".
void RememberSize(QDialog& dialog, const Profile* profile, Setting setting);

// Parses a size such as "640x480" (pixels). Returns an invalid size if the text is not one.
[[nodiscard]] QSize SizeOfText(const std::string& text);

}  // namespace quorbit
