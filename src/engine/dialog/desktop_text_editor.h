// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Opens files with the default program of the desktop if there is one, otherwise with the first
// installed editor of a fixed list. User interface thread only.

#pragma once

#include "engine/dialog/text_editor.h"

namespace quorbit {

class DesktopTextEditor : public TextEditor {
public:
    // Returns FileNotFound if there is no such file or no editor, PathNotFound if the folder of the
    // file does not exist. The result of starting an editor is derived from the error of the
    // system.
    [[nodiscard]] EditorStart Open(const std::string& path) override;
};

}  // namespace quorbit
