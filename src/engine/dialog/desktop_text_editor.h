// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The text editor of this computer: the person's choice where there is a desktop that knows it,
// else the first well-known editor that is installed.

#pragma once

#include "engine/dialog/text_editor.h"

namespace quorbit {

class DesktopTextEditor : public TextEditor {
public:
    // FileNotFound: no such file, or no editor. PathNotFound: the folder of the file is missing.
    [[nodiscard]] EditorStart Open(const std::string& path) override;
};

}  // namespace quorbit
